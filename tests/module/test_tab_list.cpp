// One tab a drawing: texts, order, selection, tooltip, and what the failure paths report.
#include "ModuleFixture.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "module/ZavikMDITabs.h"
#include "objectarx/dbapserv.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <stdexcept>

using Texts = std::vector<std::string>;

TEST_CASE_FIXTURE(ModuleFixture, "a drawing's tab carries its name as the user wants it")
{
    load();
    open("plan.a.dwg");
    open("Grundri\xDF.dwg");
    CHECK(tabs() == Texts{"plan.a", "Grundri\xDF"});
    user.set("UseExtensions", 1);
    open("section.dwg");
    CHECK(tabs() == Texts{"plan.a", "Grundri\xDF", "section.dwg"});
}

TEST_CASE_FIXTURE(ModuleFixture, "a document has one tab, at the end, with icon 0 and itself as data")
{
    load();
    AcApDocument* pFirst = open("a.dwg");
    AcApDocument* pSecond = open("b.dwg");
    m_pWndTabs->addDocument(pFirst);
    CHECK(tabs() == Texts{"a", "b"});
    CHECK(m_pWndTabs->findDocument(pSecond) == 1);
    CHECK(m_pWndTabs->getDocument(middleOf(0)) == pFirst);
    CHECK(m_pWndTabs->getDocument(middleOf(1)) == pSecond);
    CHECK(m_pWndTabs->getDocument(CPoint(middleOf(1).x + 300, 5)) == nullptr);

    m_pWndTabs->removeDocument(pFirst);
    m_pWndTabs->removeDocument(pFirst);
    CHECK(tabs() == Texts{"b"});
    CHECK_FALSE(m_pWndTabs->isDocumentPresent(pFirst));
    m_pWndTabs->activateDocument(pFirst);
    CHECK(selected() == 0);

    TCITEMA item = {};
    item.mask = TCIF_IMAGE;
    item.iImage = -1;
    ::SendMessageA(strip(), TCM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    CHECK(item.iImage == 0);
}

TEST_CASE_FIXTURE(ModuleFixture, "tabs and host follow each other")
{
    load();
    AcApDocument* pFirst = open("a.dwg");
    AcApDocument* pSecond = open("b.dwg");
    CHECK(selected() == 1);
    SUBCASE("a click activates the drawing")
    {
        click(0);
        CHECK(app.documents().active() == pFirst);
        CHECK(selected() == 0);
    }
    SUBCASE("the host's activation selects the tab")
    {
        app.documents().activateDocument(pFirst);
        CHECK(selected() == 0);
    }
    SUBCASE("a click while activation is disabled does nothing")
    {
        app.documents().disableDocumentActivation();
        click(0);
        CHECK(selected() == 1);
        CHECK(app.documents().active() == pSecond);
        app.documents().enableDocumentActivation();
    }
    SUBCASE("a refused activation is reported, and the tab stays selected")
    {
        const Answers answers;
        app.documents().disableDocumentActivation();
        Tesk::setDiagnosticsLevel(1);
        ::SendMessageA(strip(), TCM_SETCURSEL, 0, 0);
        NMHDR notification = {strip(), 42, static_cast<UINT>(TCN_SELCHANGE)};
        ::SendMessageA(frame, WM_NOTIFY, 42, reinterpret_cast<LPARAM>(&notification));
        CHECK(answers.assertions() == "ARXMDITabs: acDocManager->activateDocument(pNew) == Acad::eOk\n");
        CHECK(selected() == 0);
        CHECK(app.documents().active() == pSecond);
        app.documents().enableDocumentActivation();
    }
}

TEST_CASE_FIXTURE(ModuleFixture, "the marker follows the modified state, told once a change of state")
{
    folder.write("MDITabs.ini", "ModifiedText = ' *'\nDefaultTooltipText = untitled\n");
    load();
    AcApDocument* pDocument = open("a.dwg");
    AcApDocument* pOther = open("b.dwg");
    CDocManagerReactor* pReactor = CDocManagerReactor::getReactor();
    REQUIRE(run("LINE 0 0 1 1"));
    CHECK(tabs() == Texts{"a", "b *"});
    CHECK(pReactor->wasDatabaseModified(pOther));
    CHECK_FALSE(pReactor->wasDatabaseModified(pDocument));

    // A second edit changes no state, so the tab, renamed behind the module's back, stays.
    char text[] = "renamed";
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    ::SendMessageA(strip(), TCM_SETITEMA, 1, reinterpret_cast<LPARAM>(&item));
    REQUIRE(run("LINE 0 0 2 2"));
    CHECK(tabs() == Texts{"a", "renamed"});
    REQUIRE(run("QSAVE"));
    CHECK(tabs() == Texts{"a", "b"});
    CHECK(acdbHostApplicationServices()->workingDatabase() == pOther->database());
}

TEST_CASE_FIXTURE(ModuleFixture, "the balloon takes the text of the tab under the mouse")
{
    folder.write("MDITabs.ini", "DefaultTooltipText = untitled\n");
    folder.write("sub\\MDITabs.ini", "DefaultTooltipText = the sub-folder's\n");
    load();
    open("a.dwg");
    AcApDocument* pSecond = open("sub\\b.dwg");
    moveMouse(0);
    CHECK(balloon() == "untitled");
    moveMouse(1);
    CHECK(balloon() == "the sub-folder's");
    REQUIRE(run("PROPS Title \"The title\""));
    REQUIRE(run("QSAVE"));
    moveMouse(1);
    CHECK(balloon() == "The title");

    SUBCASE("and keeps it, by file name and its case, until the state of the drawing changes")
    {
        close(pSecond);
        open("sub\\B.dwg");
        moveMouse(1);
        CHECK(balloon() == "the sub-folder's");
        close(app.documents().active());
        open("sub\\b.dwg");
        moveMouse(0);
        moveMouse(1);
        CHECK(balloon() == "The title");
        REQUIRE(run("LINE 0 0 1 1"));
        moveMouse(1);
        CHECK(balloon() == "the sub-folder's");
    }
    SUBCASE("as it is written, ampersands and tab characters, too")
    {
        REQUIRE(run("PROPS Title \"Plans & elevations\""));
        REQUIRE(run("QSAVE"));
        moveMouse(1);
        CHECK(balloon() == "Plans & elevations");
        CHECK((::GetWindowLongA(balloonWindow(), GWL_STYLE) & TTS_NOPREFIX) != 0);
    }
    SUBCASE("which goes with its drawing")
    {
        REQUIRE(run("HOVER 1"));
        CHECK(::IsWindowVisible(balloonWindow()));
        close(pSecond);
        CHECK_FALSE(::IsWindowVisible(balloonWindow()));
    }
    SUBCASE("and not the text of an empty place")
    {
        moveMouse(0);
        ::SendMessageA(strip(), WM_MOUSEMOVE, 0, MAKELPARAM(middleOf(1).x + 300, 5));
        CHECK(balloon() == "untitled");
    }
}

TEST_CASE_FIXTURE(ModuleFixture, "the frame is laid out again around the strip's coming and going")
{
    load();
    LayoutCounter counter(app.frame());
    std::vector<AcApDocument*> documents;
    std::vector<bool> passes;
    for (const char* name : {"a.dwg", "b.dwg", "c.dwg", "d.dwg"}) {
        documents.push_back(open(name));
        m_pWndTabs->removeDocument(documents.back());
        counter.take();
        CDocManagerReactor::getReactor()->documentCreated(documents.back());
        passes.push_back(counter.take() != 0);
    }
    CHECK(passes == std::vector<bool>{true, true, false, false});
}

TEST_CASE_FIXTURE(ModuleFixture, "broken preconditions are reported and the work goes on")
{
    load();
    AcApDocument* pDocument = open("a.dwg");
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    SUBCASE("a tab that is not there")
    {
        CHECK(m_pWndTabs->getDocument(7) == nullptr);
        CHECK(answers.assertions() == "ARXMDITabs: GetItem(iItem, &tabItem)\n");
    }
    SUBCASE("no document")
    {
        m_pWndTabs->addDocument(nullptr);
        m_pWndTabs->saveDocument(nullptr);
        CHECK(answers.assertions() == "ARXMDITabs: pDocument != NULL\nARXMDITabs: pDocument != NULL\n");
    }
    SUBCASE("a document announced twice")
    {
        CDocManagerReactor::getReactor()->documentCreated(pDocument);
        CHECK(answers.assertions() ==
              "DocManagerReactor: m_mapDatabaseReactors.find(pDocument) == m_mapDatabaseReactors.end()\n");
    }
    SUBCASE("a document taken away twice")
    {
        CDocManagerReactor* pReactor = CDocManagerReactor::getReactor();
        pReactor->documentToBeDestroyed(pDocument);
        CHECK_THROWS_WITH_AS(pReactor->removeDatabaseModifiedFlag(pDocument), "invalid map/set<T> iterator",
                             std::out_of_range);
        pReactor->documentToBeDestroyed(pDocument);
        CHECK(answers.assertions() == "DocManagerReactor: iter != m_mapDatabaseReactors.end()\n");
        pReactor->documentCreated(pDocument);
    }
    SUBCASE("a change in a drawing that no document owns, or that failed")
    {
        CDatabaseReactor reactor;
        reactor.headerSysVarChanged(nullptr, "CLAYER", Adesk::kFalse);
        CHECK(answers.assertions().empty());
        reactor.headerSysVarChanged(nullptr, "CLAYER", Adesk::kTrue);
        CHECK(answers.assertions() == "DatabaseReactor: pDocument != NULL\n");
    }
    CHECK(tabs() == Texts{"a"});
}

TEST_CASE_FIXTURE(ModuleFixture, "drawings that are open at load have their tabs, and no tab outlives the module")
{
    AcApDocument* pFirst = open("a.dwg");
    open("b.dwg");
    app.documents().activateDocument(pFirst);
    const auto reactors = app.documents().reactorCount() + app.editor().reactorCount();
    for (int i = 0; i < 3; ++i) {
        REQUIRE(load() == "");
        CHECK(tabs() == Texts{"a", "b"});
        CHECK(selected() == 0);
        REQUIRE(unload() == "");
        CHECK(strip() == nullptr);
        CHECK(logo() == nullptr);
        CHECK(app.documents().reactorCount() + app.editor().reactorCount() == reactors);
    }
    REQUIRE(run("LINE 0 0 1 1"));
}
