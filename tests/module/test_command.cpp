// The command and its dialog where the host or the registry fails, and what is reported of
// broken preconditions. What it shows and does else is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Prerelease.h"
#include "module/AcadARXUtil.h"
#include "module/ZavikMDITabs.h"
#include "reactors/TabForwarders.h"
#include "settings/resource.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <string>

TEST_CASE_FIXTURE(ModuleFixture,
                  "the options can be reached although the strip cannot be made, and nothing stays of it")
{
    AcApDocument* pDocument = open("a.dwg");
    const auto listeners = [&] {
        return app.documents().reactorCount() + app.editor().reactorCount() +
               host::Database::of(pDocument->database())->reactors().size();
    };
    const auto before = listeners();
    const Answers answers;
    host::Faults::throwNth("AcApDocManager::newAcApDocumentIterator", 1, [] { throw 1; });
    load();
    CHECK(host::Faults::fired());
    type("ZavikMDITabs");
    CHECK(answers.optionsShown() == 1);
    // Nor is there more than the name to show of a drawing.
    open("b.dwg");
    moveMouse(0);
    CHECK(run("MENU 0"));
    host::Faults::throwNth("AcApDocManager::newAcApDocumentIterator", 2, [] { throw 1; });
    CHECK(unload() == "");
    host::Faults::clear();
    CHECK(strip() == nullptr);
    CHECK(listeners() == before);
}

TEST_CASE_FIXTURE(ModuleFixture, "options that cannot be stored leave the strip alone and the user informed")
{
    user.set("TabLocation", 1);
    user.protect();
    load();
    open("a.dwg");
    const HWND before = strip();
    Answers answers([](HWND dialog) {
        Answers::press(dialog, IDC_POSITION_TOP);
        Answers::press(dialog, IDC_DEBUG);
        Answers::press(dialog, IDOK);
    });
    type("ZavikMDITabs");
    REQUIRE(answers.boxes().size() == 1);
    CHECK(answers.boxes()[0].title == "Zavik ZavikMDITabs");
    CHECK(answers.boxes()[0].text ==
          "Failed to save ZavikMDITabs configuration.\n\nPlease contact your Systems or CAD manager.");
    CHECK(answers.boxes()[0].icon == ::LoadIconA(nullptr, IDI_HAND));
    CHECK(user.get("TabLocation") == 1);
    CHECK(strip() == before);
    CHECK(Tesk::getDiagnosticsLevel() == 0);
}

TEST_CASE_FIXTURE(ModuleFixture, "a strip that is there, or is not, where it should not be so is reported")
{
    user.set("Use", 0);
    load();
    AcApDocument* pDocument = open("a.dwg");
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    for (void (*pForward)(AcApDocument*) :
         {&tabsAddDocument, &tabsRemoveDocument, &tabsActivateDocument, &tabsUpdateDocumentModified}) {
        const std::size_t before = answers.boxes().size();
        pForward(pDocument);
        CHECK(answers.boxes().size() == before + 1);
    }
    close(pDocument);
    createTabWindow();
    createTabWindow();
    const std::string missing = "ZavikMDITabs: m_pWndTabs != NULL\n";
    CHECK(answers.assertions() == missing + missing + missing + missing + "ZavikMDITabs: m_pWndTabs == NULL\n");
}

TEST_CASE_FIXTURE(ModuleFixture, "commands are registered with checked arguments")
{
    load();
    const Answers answers;
    const auto command = +[] {};
    CHECK(Tesk::registerCommand(std::string(30, 'A').c_str(), "Tests", command, ACRX_CMD_MODAL) == Acad::eOk);
    Tesk::setDiagnosticsLevel(1);
    CHECK(Tesk::registerCommand(std::string(31, 'B').c_str(), "Tests", command, ACRX_CMD_TRANSPARENT) == Acad::eOk);
    CHECK(Tesk::registerCommand("C", "Tests", command, 2) == Acad::eOk);
    CHECK(Tesk::registerCommand("C", "Tests", command, ACRX_CMD_MODAL, 4) == Acad::eDuplicateKey);
    CHECK(answers.assertions() ==
          "AcadARXUtil: _tcslen(sCommand) < 31\n"
          "AcadARXUtil: (iPrimaryFlags == ACRX_CMD_MODAL) || (iPrimaryFlags == ACRX_CMD_TRANSPARENT)\n"
          "AcadARXUtil: acedRegCmds->addCommand( sGroupName, sCommand, sCommand, iPrimaryFlags | iSecondaryFlags, "
          "functionAddr, pUIContext, iFCode, hResourceHandle, pCmdPtrRet) == Acad::eOk\n");
}
