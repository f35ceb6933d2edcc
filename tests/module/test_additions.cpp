// What an office may switch on, beside the strip. What reaches other programs is driven
// from outside, in tests/e2e.
#include "ModuleFixture.h"
#include "additions/Additions.h"
#include "additions/MenuIds.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Prerelease.h"
#include "module/ZavikMDITabs.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <algorithm>

using Texts = std::vector<std::string>;

namespace {

struct AdditionsFixture : ModuleFixture {
    explicit AdditionsFixture(const std::string& texts = "PopupCloseOthersText = Others\nPopupCloseSavedText = Saved\n"
                                                         "PopupCopyPathText = Copy\nPopupOpenFolderText = Folder\n"
                                                         "PopupDrawingsText = Drawings\n")
    {
        folder.write("MDITabs.ini", texts);
        load();
    }
    // As chosen in the tab's menu; what the host does then is still to come.
    void choose(AcApDocument* pDocument, UINT item) { m_pWndTabs->processPopupMenuItem(pDocument, item, {}); }
    std::size_t listeners() { return app.documents().reactorCount() + app.editor().reactorCount(); }
    static host::Database& drawing(AcApDocument* pDocument) { return *host::Database::of(pDocument->database()); }
};

struct NamesFixture : AdditionsFixture {
    NamesFixture()
    {
        folder.write("ProjectSettings.txt", "");
        folder.write("Settings\\support\\MDITabs.ini", "ModifiedText = *\nSameNameText = \" (%DISTINCT_FOLDER%)\"\n");
    }
    // Of the drawing "Plan" in each of the folders.
    Texts tabsOf(const Texts& folders)
    {
        for (const std::string& name : folders)
            open(name + "\\Plan.dwg");
        return tabs();
    }
};

}  // namespace

TEST_CASE_FIXTURE(AdditionsFixture, "several are closed one after the other, until anything goes another way")
{
    std::vector<AcApDocument*> documents;
    for (const char* name : {"a.dwg", "b.dwg", "c.dwg", "d.dwg"})
        documents.push_back(open(name));
    const std::size_t before = listeners();
    SUBCASE("all are closed")
    {
        choose(documents[1], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        CHECK(listeners() == before + 2);
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"b"});
    }
    SUBCASE("a person keeps one")
    {
        app.documents().activateDocument(documents[1]);
        REQUIRE(run("LINE 0 0 1 1"));
        const Answers answers({}, [] { ::PostMessageA(::GetActiveWindow(), WM_COMMAND, IDCANCEL, 0); });
        choose(documents[3], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        app.pumpUntilIdle();
        CHECK(answers.boxes().size() == 1);
        CHECK(tabs() == Texts{"b", "c", "d"});
        drawing(documents[1]).setSaved();
        close(documents[1]);
        CHECK(tabs() == Texts{"c", "d"});
    }
    SUBCASE("the host takes no command")
    {
        host::Faults::failNth("AcApDocManager::sendStringToExecute", 2);
        choose(documents[3], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        app.pumpUntilIdle();
        host::Faults::clear();
        CHECK(tabs() == Texts{"b", "c", "d"});
        CHECK(listeners() == before);
        close(documents[1]);
        CHECK(tabs() == Texts{"c", "d"});
    }
    SUBCASE("another is closed meanwhile")
    {
        choose(documents[3], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        app.documents().close(static_cast<host::Document&>(*documents[1]));
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"c", "d"});
    }
    SUBCASE("the unchanged are those that are so when their turn comes, whatever was notified")
    {
        const auto editUnheard = [&](AcApDocument* pDocument) {
            host::Faults::failNth("AcDbDatabaseReactor::objectAppended", 1);
            drawing(pDocument).addLine(0, 0, 1, 1);
            host::Faults::clear();
        };
        editUnheard(documents[1]);
        choose(documents[3], IDC_DYNAMIC_MENU_CLOSE_SAVED);
        editUnheard(documents[2]);
        app.pumpUntilIdle();
        CHECK(tabs() == Texts{"b", "c"});
        for (AcApDocument* pDocument : {documents[1], documents[2]})
            CHECK(app.execute("MENU " + std::to_string(m_pWndTabs->findDocument(pDocument))).output.find("Saved") ==
                  std::string::npos);
    }
    SUBCASE("the strip goes meanwhile")
    {
        choose(documents[3], IDC_DYNAMIC_MENU_CLOSE_OTHERS);
        unload();
        CHECK(listeners() == 0);
        app.pumpUntilIdle();
        load();
        CHECK(tabs() == Texts{"b", "c", "d"});
    }
    CHECK(listeners() == (strip() != nullptr ? before : 0));
}

TEST_CASE_FIXTURE(AdditionsFixture, "what needs a file is offered where the drawing has one, by its full path")
{
    open("a.dwg");
    const auto offered = [this] {
        const std::string items = app.execute("MENU 0").output;
        return items.find("Copy") != std::string::npos && items.find("Folder") != std::string::npos;
    };
    CHECK(offered());
    auto& document = static_cast<host::Document&>(*app.documents().active());
    char previous[MAX_PATH];
    ::GetCurrentDirectoryA(sizeof previous, previous);
    ::SetCurrentDirectoryA(folder.path().c_str());
    document.setFile("a.dwg");
    CHECK_FALSE(offered());
    ::SetCurrentDirectoryA(previous);
    document.setFile(folder.path());
    CHECK_FALSE(offered());
}

TEST_CASE_FIXTURE(NamesFixture, "names that are shared are told apart by the nearest folder that does")
{
    SUBCASE("by one further up, case not counting")
    {
        CHECK(tabsOf({"A\\Drawings", "B\\drawings"}) == Texts{"Plan (A)", "Plan (B)"});
        // One that is renamed takes it from both.
        REQUIRE(run("SAVEAS \"" + folder.path() + "B\\Other.dwg\""));
        CHECK(tabs() == Texts{"Plan", "Other"});
    }
    SUBCASE("anew, when another comes and goes")
    {
        CHECK(tabsOf({"A\\x", "B\\y", "C\\x"}) == Texts{"Plan (A)", "Plan (y)", "Plan (C)"});
        close(app.documents().active());
        CHECK(tabs() == Texts{"Plan (x)", "Plan (y)"});
        close(app.documents().active());
        CHECK(tabs() == Texts{"Plan"});
        CHECK(tabsOf({"B\\y"}) == Texts{"Plan (x)", "Plan (y)"});
    }
    SUBCASE("by their own, where one lies below the other")
    {
        CHECK(tabsOf({"A", "A\\Old", "C\\New\\C"}) == Texts{"Plan (A)", "Plan (Old)", "Plan (C)"});
    }
    SUBCASE("by the whole path, where nothing less does")
    {
        const std::string path = folder.path();
        CHECK(tabsOf({"A\\B", "B\\A", "A", "B"}) == Texts{"Plan (" + path + "A\\B)", "Plan (" + path + "B\\A)",
                                                          "Plan (" + path + "A)", "Plan (" + path + "B)"});
    }
}

TEST_CASE_FIXTURE(NamesFixture,
                  "names are told apart where the texts ask for it once they are shared, before the marker")
{
    open("plain\\Plan.dwg");
    folder.write("plain\\MDITabs.ini", "SameNameText = \"\"\n");
    CHECK(tabsOf({"A", "B"}) == Texts{"Plan", "Plan (A)", "Plan (B)"});
    REQUIRE(run("LINE 0 0 1 1"));
    CHECK(tabs().back() == "Plan (B)*");
}

TEST_CASE_FIXTURE(AdditionsFixture, "the middle button closes the tab on which it was pressed and released")
{
    AcApDocument* pPressed = open("a.dwg");
    open("b.dwg");
    const auto middle = [this](UINT message, int tab) {
        send(message, middleOf(tab));
        app.pumpUntilIdle();
        return tabs().size();
    };
    middle(WM_MBUTTONDOWN, 0);
    CHECK(middle(WM_MBUTTONUP, 0) == 2);
    user.set("MiddleClickCloses", 1);
    // Released elsewhere it closes nothing, then or later; nor when something else takes the mouse meanwhile.
    middle(WM_MBUTTONDOWN, 0);
    CHECK(::GetCapture() == strip());
    middle(WM_MBUTTONUP, 1);
    CHECK(::GetCapture() == nullptr);
    CHECK(middle(WM_MBUTTONUP, 0) == 2);
    middle(WM_MBUTTONDOWN, 0);
    ::ReleaseCapture();
    CHECK(middle(WM_MBUTTONUP, 0) == 2);
    // A drawing that goes while it is pressed lets the mouse go.
    middle(WM_MBUTTONDOWN, 0);
    close(pPressed);
    CHECK(::GetCapture() == nullptr);
    // Quick clicks count each.
    open("c.dwg");
    middle(WM_MBUTTONDOWN, 0);
    CHECK(middle(WM_MBUTTONUP, 0) == 1);
    middle(WM_MBUTTONDBLCLK, 0);
    CHECK(middle(WM_MBUTTONUP, 0) == 0);
}

TEST_CASE_FIXTURE(AdditionsFixture, "the list of drawings is that of the menu that is open, made once, of what is open")
{
    AcApDocument* pFirst = open("a&b.dwg");
    AcApDocument* pSecond = open("b.dwg");
    CHECK(app.execute("MENU 0").output.find("item 21000: \"a&&b\"") != std::string::npos);
    open("c.dwg");
    const auto additions = createAdditions(*m_pWndTabs);
    const auto countItems = [&] {
        CMenu menu, submenu;
        menu.CreatePopupMenu();
        additions->appendItems(pSecond, menu, CTabAdditions::Place::BeforeOptions);
        submenu.Attach(::GetSubMenu(menu.m_hMenu, 2));
        additions->openMenu(submenu);
        additions->openMenu(submenu);
        const int count = static_cast<int>(submenu.GetMenuItemCount());
        submenu.Detach();
        return count;
    };
    CHECK(countItems() == 3);
    // One is closed without a word while the list is shown.
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    host::Faults::failNth("AcApDocManagerReactor::documentToBeDestroyed", 1);
    close(pFirst);
    host::Faults::clear();
    CHECK(additions->processItem(pSecond, IDC_DYNAMIC_MENU_DRAWINGS));
    CHECK(countItems() == 2);
    CHECK(additions->processItem(pSecond, IDC_DYNAMIC_MENU_DRAWINGS));
    CHECK(app.documents().active() == pSecond);
    CHECK(answers.assertions() == "");
}

TEST_CASE_FIXTURE(AdditionsFixture, "a path that is not copied and a folder that is not opened are told of")
{
    folder.write("sub\\MDITabs.ini", "PopupCopyPathText = Copy\nPopupOpenFolderText = Folder\n");
    AcApDocument* pDocument = open("sub\\a.dwg");
    const Answers answers;
    ::OpenClipboard(frame);
    choose(pDocument, IDC_DYNAMIC_MENU_COPY_PATH);
    ::CloseClipboard();
    ::MoveFileA(folder.path("sub").c_str(), folder.path("other").c_str());
    choose(pDocument, IDC_DYNAMIC_MENU_OPEN_FOLDER);
    REQUIRE(answers.boxes().size() == 2);
    CHECK(answers.boxes()[0].text == "The path could not be copied: another program is using the clipboard.");
    CHECK(answers.boxes()[1].text == "The drawing's folder could not be opened.");
}

TEST_CASE_FIXTURE(AdditionsFixture, "what is not switched on cannot be chosen by its number either")
{
    AcApDocument* pDocument = open("a.dwg");
    open("b.dwg");
    Tesk::setDiagnosticsLevel(1);
    const Answers answers;
    choose(pDocument, IDC_DYNAMIC_MENU_HELP);
    choose(pDocument, IDC_DYNAMIC_MENU_DRAWINGS);
    CHECK(answers.assertions() == "ARXMDITabsMenu: bOK\nARXMDITabsMenu: bOK\n");
}
