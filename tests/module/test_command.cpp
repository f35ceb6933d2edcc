// The command and its dialog where the host or the registry fails. What it shows and does
// else is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Prerelease.h"
#include "settings/resource.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

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
