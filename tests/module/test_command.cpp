// The command: the real dialog in all rows of the decision table, and what is stored.
#include "ModuleFixture.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "module/AcadARXUtil.h"
#include "module/ZavikMDITabs.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "settings/resource.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <algorithm>

namespace {

// What stands in the registry before the command, and the boxes clicked in the dialog.
// With the debug mode reports come as boxes.
struct Row {
    const char* what;
    DWORD use;
    std::vector<int> clicks;
    bool strip;    // there is one afterwards
    bool fresh;    // and it is another window than before
    bool rebuilt;  // its tabs were built anew
    const char* assertions;
};

const char* const kNothingToDestroy = "EditorReactor: m_pReactor != NULL\n"
                                      "DocManagerReactor: m_pReactor != NULL\n"
                                      "ZavikMDITabs: m_pWndTabs != NULL\n";

const Row kRows[] = {
    {"nothing", 1, {}, true, false, false, ""},
    {"extensions", 1, {IDC_SHOW_EXTENSIONS}, true, false, true, ""},
    {"icons", 1, {IDC_SHOW_ICONS}, true, false, true, ""},
    {"location", 1, {IDC_POSITION_TOP}, true, true, true, ""},
    {"discreet", 1, {IDC_DISCREET}, true, true, true, ""},
    {"tooltips", 1, {IDC_SHOW_TOOLTIPS}, true, true, true, ""},
    {"off", 1, {IDC_USE_TABS}, false, false, false, ""},
    {"off and style", 1, {IDC_POSITION_TOP, IDC_USE_TABS}, true, true, false, ""},
    {"on", 0, {IDC_USE_TABS}, true, true, true, ""},
    {"on and style", 0, {IDC_USE_TABS, IDC_DEBUG, IDC_POSITION_TOP}, true, true, true, kNothingToDestroy},
    {"style while off",
     0,
     {IDC_USE_TABS, IDC_DEBUG, IDC_POSITION_TOP, IDC_USE_TABS},
     true,
     true,
     false,
     kNothingToDestroy},
    {"texts while off", 0, {IDC_USE_TABS, IDC_SHOW_ICONS, IDC_USE_TABS}, false, false, false, ""},
};

}  // namespace

TEST_CASE_FIXTURE(ModuleFixture, "the strip after the command, row by row")
{
    for (const Row& row : kRows) {
        CAPTURE(row.what);
        for (const char* name : {"TabLocation", "UseToolTips", "UseIcons"})
            user.set(name, 1);
        user.set("IsDiscreet", 0);
        user.set("UseExtensions", 0);
        user.set("Use", row.use);
        REQUIRE(load() == "");
        std::vector<AcApDocument*> documents = {open("a.dwg"), open("b.dwg")};
        const HWND before = strip();
        CHECK((before != nullptr) == (row.use != 0));

        char text[] = "stale";
        TCITEMA item = {};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        ::SendMessageA(before, TCM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));

        const bool debug = *row.assertions != '\0';
        Answers answers([&](HWND dialog, int turn) {
            const auto click = static_cast<std::size_t>(turn);
            Answers::press(dialog, click < row.clicks.size() ? row.clicks[click] : IDOK);
        });
        LayoutCounter counter(app.frame());
        type("ZavikMDITabs");
        CHECK(answers.optionsShown() == 1);
        CHECK(counter.take() > 0);
        CHECK((strip() != nullptr) == row.strip);
        CHECK((strip() != before && strip() != nullptr) == row.fresh);
        CHECK(CDocManagerReactor::isAttached() == row.strip);
        CHECK(CEditorReactor::isAttached() == row.strip);
        if (row.strip) {
            REQUIRE(tabs().size() == 2);
            CHECK((tabs()[0] == "stale") == !(row.rebuilt || row.fresh));
        }
        CHECK(Tesk::getDiagnosticsLevel() == (debug ? 2 : 0));
        CHECK(answers.assertions() == row.assertions);
        Tesk::setDiagnosticsLevel(0);
        for (AcApDocument* pDocument : documents)
            close(pDocument);
        CHECK(unload() == "");
        CHECK(strip() == nullptr);
    }
}

TEST_CASE_FIXTURE(ModuleFixture, "destroying a strip that is not there is reported and does nothing")
{
    user.set("Use", 0);
    load();
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    destroyTabWindow();
    CDocManagerReactor::detach();
    CEditorReactor::detach();
    createTabWindow();
    createTabWindow();
    CHECK(answers.assertions() == "ZavikMDITabs: m_pWndTabs != NULL\nDocManagerReactor: m_pReactor != NULL\n"
                                  "EditorReactor: m_pReactor != NULL\nZavikMDITabs: m_pWndTabs == NULL\n");
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

TEST_CASE_FIXTURE(ModuleFixture, "a strip that is up although switched off goes with the module")
{
    load();
    open("a.dwg");
    user.set("Use", 0);
    CHECK(unload() == "");
    CHECK(strip() == nullptr);
    CHECK_FALSE(CDocManagerReactor::isAttached());
    CHECK_FALSE(CEditorReactor::isAttached());
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
