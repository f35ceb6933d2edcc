// The command: the real dialog in all rows of the decision table, and what is stored.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "module/AcadARXUtil.h"
#include "module/ZavikMDITabs.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "reactors/TabForwarders.h"
#include "settings/resource.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <algorithm>
#include <regex>
#include <string>
#include <vector>

namespace {

constexpr const char* kDetach = "CEditorReactor::detach()\nCEditorReactor::removeDocuments()\n"
                                "CDocManagerReactor::detach()\nCDocManagerReactor::removeDocuments()\n";
constexpr const char* kAttach = "CDocManagerReactor::attach()\nCDocManagerReactor::addDocuments()\n"
                                "CEditorReactor::attach()\nCEditorReactor::addDocuments()\n";
constexpr const char* kRebuild = "CDocManagerReactor::removeDocuments()\nCDocManagerReactor::addDocuments()\n";
constexpr const char* kNothingToDetach = "CEditorReactor::detach()\nCDocManagerReactor::detach()\n";
constexpr const char* kReports = "EditorReactor: m_pReactor != NULL\nDocManagerReactor: m_pReactor != NULL\n"
                                 "ZavikMDITabs: m_pWndTabs != NULL\n";

// The strip's switch before the command, the boxes clicked in the dialog, and what the
// reactors are told then, in debug mode.
struct Row {
    const char* what;
    DWORD use;
    std::vector<int> clicks;
    bool strip;  // there is one afterwards
    std::string steps;
    const char* assertions;
};

const Row kRows[] = {
    {"nothing", 1, {}, true, "", ""},
    {"extensions", 1, {IDC_SHOW_EXTENSIONS}, true, kRebuild, ""},
    {"icons", 1, {IDC_SHOW_ICONS}, true, kRebuild, ""},
    {"location", 1, {IDC_POSITION_TOP}, true, std::string(kDetach) + kAttach + kRebuild, ""},
    {"discreet", 1, {IDC_DISCREET}, true, std::string(kDetach) + kAttach + kRebuild, ""},
    {"tooltips", 1, {IDC_SHOW_TOOLTIPS}, true, std::string(kDetach) + kAttach + kRebuild, ""},
    {"off", 1, {IDC_USE_TABS}, false, kDetach, ""},
    {"off and style", 1, {IDC_POSITION_TOP, IDC_USE_TABS}, true, std::string(kDetach) + kAttach, ""},
    {"on", 0, {IDC_USE_TABS}, true, std::string(kAttach) + kRebuild, ""},
    {"on and style",
     0,
     {IDC_USE_TABS, IDC_POSITION_TOP},
     true,
     std::string(kNothingToDetach) + kAttach + kRebuild,
     kReports},
    {"style while off",
     0,
     {IDC_USE_TABS, IDC_POSITION_TOP, IDC_USE_TABS},
     true,
     std::string(kNothingToDetach) + kAttach,
     kReports},
    {"texts while off", 0, {IDC_USE_TABS, IDC_SHOW_ICONS, IDC_USE_TABS}, false, "", ""},
};

// What the reactors were told, in order.
std::string stepsIn(const std::string& history)
{
    static const std::regex pattern(
        R"(C(DocManager|Editor)Reactor::(attach|detach|addDocuments|removeDocuments)\(\)\n)");
    std::string steps;
    for (std::sregex_iterator found(history.begin(), history.end(), pattern), end; found != end; ++found)
        steps += found->str();
    return steps;
}

}  // namespace

TEST_CASE_FIXTURE(ModuleFixture, "the strip after the command, row by row")
{
    for (const Row& row : kRows) {
        CAPTURE(row.what);
        ::RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\Zavik\\ZavikMDITabs");
        user.set("Use", row.use);
        REQUIRE(load() == "");
        std::vector<AcApDocument*> documents = {open("a.dwg"), open("b.dwg")};
        const HWND before = strip();
        CHECK((before != nullptr) == (row.use != 0));

        Answers answers([&](HWND dialog, int turn) {
            const auto click = static_cast<std::size_t>(turn);
            Answers::press(dialog, click < row.clicks.size() ? row.clicks[click] : IDOK);
        });
        LayoutCounter counter(app.frame());
        Tesk::setDiagnosticsLevel(2);
        app.commandLine().history().clear();
        type("ZavikMDITabs");
        CHECK(Tesk::getDiagnosticsLevel() == 2);
        Tesk::setDiagnosticsLevel(0);
        CHECK(answers.optionsShown() == 1);
        CHECK(counter.take() > 0);
        CHECK((strip() != nullptr) == row.strip);
        CHECK((strip() != before && strip() != nullptr) == (row.steps.find(kAttach) != std::string::npos));
        CHECK(stepsIn(app.commandLine().history()) == row.steps);
        CHECK(answers.assertions() == row.assertions);
        if (row.strip)
            CHECK(tabs().size() == 2);
        for (AcApDocument* pDocument : documents)
            close(pDocument);
        CHECK(unload() == "");
        CHECK(strip() == nullptr);
    }
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
    createTabWindow();
    createTabWindow();
    const std::string missing = "ZavikMDITabs: m_pWndTabs != NULL\n";
    CHECK(answers.assertions() == missing + missing + missing + missing + "ZavikMDITabs: m_pWndTabs == NULL\n");
}

TEST_CASE_FIXTURE(ModuleFixture, "odd values of the options count as the defaults or as off")
{
    user.set("TabLocation", 7);
    user.set("Use", 0, REG_BINARY);
    user.set("UseIcons", 2);
    user.set("UseExtensions", 2);
    open("a.dwg");
    load();
    CHECK(tabs() == std::vector<std::string>{"a"});
    CHECK(rectOf(strip()).top == 0);
    unload();
    CHECK(strip() == nullptr);
}

TEST_CASE_FIXTURE(ModuleFixture, "the options can be reached although the strip cannot be made")
{
    open("a.dwg");
    host::Faults::throwNth("AcApDocManager::newAcApDocumentIterator", 1, [] { throw 1; });
    load();
    CHECK(host::Faults::fired());
    host::Faults::clear();
    const Answers answers;
    type("ZavikMDITabs");
    CHECK(answers.optionsShown() == 1);
}

TEST_CASE_FIXTURE(ModuleFixture, "the dialog shows the options, greys them with the check box, and stores them all")
{
    const std::vector<int> options = {IDC_POSITION_TOP,  IDC_POSITION_BOTTOM, IDC_POSITION_GROUP, IDC_SHOW_EXTENSIONS,
                                      IDC_SHOW_TOOLTIPS, IDC_SHOW_ICONS,      IDC_DISCREET,       IDC_DEBUG};
    load();
    open("a.dwg");
    std::vector<bool> defaults;
    int greyed = 0, active = 0;
    bool cancel = true;
    Answers answers([&](HWND dialog, int turn) {
        const auto press = [&](std::initializer_list<int> ids) {
            for (const int id : ids)
                Answers::press(dialog, id);
        };
        const auto countEnabled = [&] {
            return static_cast<int>(
                std::ranges::count_if(options, [&](int id) { return Answers::isEnabled(dialog, id); }));
        };
        if (cancel) {
            for (const int id : {IDC_USE_TABS, IDC_DISCREET, IDC_SHOW_TOOLTIPS, IDC_SHOW_EXTENSIONS, IDC_SHOW_ICONS,
                                 IDC_DEBUG, IDC_POSITION_TOP, IDC_POSITION_BOTTOM})
                defaults.push_back(Answers::isChecked(dialog, id));
            cancel = false;
            press({IDC_DISCREET, IDC_USE_TABS, IDCANCEL});
        } else if (turn == 0) {
            active = countEnabled();
            press({IDC_SHOW_EXTENSIONS, IDC_USE_TABS});
        } else {
            greyed = 8 - countEnabled();
            CHECK(Answers::isEnabled(dialog, IDC_USE_TABS));
            press({IDOK});
        }
    });
    LayoutCounter counter(app.frame());
    type("ZavikMDITabs");
    CHECK(defaults == std::vector<bool>{true, false, true, false, true, false, false, true});
    CHECK(user.get("Use") == -1);
    CHECK(counter.take() == 0);

    type("ZavikMDITabs");
    CHECK(active == 8);
    CHECK(greyed == 8);
    CHECK(strip() == nullptr);
    CHECK(user.get("TabLocation") == 1);
    CHECK(user.get("IsDiscreet") == 0);
    CHECK(user.get("UseToolTips") == 1);
    CHECK(user.get("UseExtensions") == 1);
    CHECK(user.get("UseIcons") == 1);
    CHECK(user.get("Use") == 0);
}

TEST_CASE_FIXTURE(ModuleFixture, "options that cannot be stored leave the strip alone and the user informed")
{
    user.set("TabLocation", 1);
    user.protect();
    load();
    open("a.dwg");
    const HWND before = strip();
    Answers answers([](HWND dialog, int) {
        Answers::press(dialog, IDC_POSITION_TOP);
        Answers::press(dialog, IDC_DEBUG);
        Answers::press(dialog, IDOK);
    });
    LayoutCounter counter(app.frame());
    type("ZavikMDITabs");
    REQUIRE(answers.boxes().size() == 1);
    CHECK(answers.boxes()[0].title == "Zavik ZavikMDITabs");
    CHECK(answers.boxes()[0].text ==
          "Failed to save ZavikMDITabs configuration.\n\nPlease contact your Systems or CAD manager.");
    CHECK(user.get("TabLocation") == 1);
    CHECK(strip() == before);
    CHECK(counter.take() == 0);
    CHECK(Tesk::getDiagnosticsLevel() == 0);
}

TEST_CASE_FIXTURE(ModuleFixture, "nothing of the module stays in the host, whatever others switched or the host fails")
{
    AcApDocument* pDocument = open("a.dwg");
    const auto listeners = [&] {
        return app.documents().reactorCount() + app.editor().reactorCount() +
               host::Database::of(pDocument->database())->reactors().size();
    };
    const auto before = listeners();
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    SUBCASE("the strip is switched off while it is up")
    {
        load();
        user.set("Use", 0);
    }
    SUBCASE("the strip was never up")
    {
        user.set("Use", 0);
        load();
    }
    SUBCASE("the editor's reactor cannot walk the documents")
    {
        load();
        host::Faults::failNth("AcApDocManager::newAcApDocumentIterator", 1);
    }
    SUBCASE("the document manager's cannot")
    {
        load();
        host::Faults::throwNth("AcApDocManager::newAcApDocumentIterator", 2, [] { throw 1; });
    }
    CHECK(unload() == "");
    host::Faults::clear();
    CHECK(strip() == nullptr);
    CHECK(listeners() == before);
    CHECK(answers.assertions() == "");
}

TEST_CASE_FIXTURE(ModuleFixture, "icons that are switched on later are there")
{
    user.set("UseIcons", 0);
    load();
    open("a.dwg");
    Answers answers([](HWND dialog, int) {
        Answers::press(dialog, IDC_SHOW_ICONS);
        Answers::press(dialog, IDOK);
    });
    const auto icons = [this] {
        return ::ImageList_GetImageCount(reinterpret_cast<HIMAGELIST>(::SendMessageA(strip(), TCM_GETIMAGELIST, 0, 0)));
    };
    std::vector<int> counts;
    for (int i = 0; i < 3; ++i) {
        type("ZavikMDITabs");
        counts.push_back(icons());
    }
    CHECK(counts == std::vector{1, 1, 1});
    // Others have switched the strip on, which is not up yet.
    unload();
    user.set("Use", 0);
    load();
    user.set("Use", 1);
    type("ZavikMDITabs");
    CHECK(strip() == nullptr);
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
