// The tabs and their balloon where drawings come and go; and what is reported of broken
// preconditions. How they follow the host is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/ui/MainFrame.h"
#include "library/diagnostics/Prerelease.h"
#include "module/ZavikMDITabs.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/EditorReactor.h"
#include "tests/support/Answers.h"
#include <doctest/doctest.h>

#include <stdexcept>

using Texts = std::vector<std::string>;

TEST_CASE_FIXTURE(ModuleFixture, "the balloon takes a text once, while the mouse stays, whoever without a tab goes")
{
    load();
    AcApDocument* pFirst = open("a.dwg");
    open("b.dwg");
    m_pWndTabs->removeDocument(pFirst);
    moveMouse(0);
    Tesk::setDiagnosticsLevel(2);
    m_pWndTabs->removeDocument(pFirst);
    moveMouse(0);
    CHECK(app.commandLine().history().find("CARXMDITabs::getTooltip") == std::string::npos);
}

TEST_CASE_FIXTURE(ModuleFixture, "a layout pass that only measures takes the band and moves nothing")
{
    load();
    open("a.dwg");
    CRect area, drawings, before, after, rest;
    ::GetClientRect(frame, area);
    ::GetWindowRect(client, drawings);
    ::GetWindowRect(strip(), before);
    app.frame().RepositionBars(0, 0xFFFF, 0, CWnd::reposQuery, &rest, CRect(0, 0, 500, 400));
    ::GetWindowRect(strip(), after);
    CHECK(after == before);
    CHECK(rest.Height() == 400 - (area.Height() - drawings.Height()));
}

TEST_CASE_FIXTURE(ModuleFixture, "a frame narrower than the logo gives the tabs no width, not less")
{
    load();
    open("a.dwg");
    AFX_SIZEPARENTPARAMS layout = {};
    layout.hDWP = ::BeginDeferWindowPos(2);
    layout.rect = {0, 0, 20, 100};
    ::SendMessageA(strip(), WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    ::EndDeferWindowPos(layout.hDWP);
    CRect tabs, logo;
    ::GetWindowRect(strip(), tabs);
    ::GetWindowRect(::GetDlgItem(frame, 43), logo);
    CHECK(tabs.Width() == 0);
    CHECK(logo.Size() == CSize(20, 27));
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
        CEditorReactor::getReactor()->getDatabaseData(nullptr);
        CHECK(answers.assertions() == "ARXMDITabs: pDocument != NULL\nARXMDITabs: pDocument != NULL\n"
                                      "EditorReactor: pDocument != NULL\nEditorReactor: pDatabase != NULL\n");
    }
    SUBCASE("a document's second tab, and what is not there any more")
    {
        m_pWndTabs->addDocument(pDocument);
        CHECK(tabs() == Texts{"a"});
        m_pWndTabs->removeDocument(pDocument);
        m_pWndTabs->removeDocument(pDocument);
        m_pWndTabs->activateDocument(pDocument);
        CHECK(tabs().empty());
        CHECK(m_pWndTabs->findDocument(pDocument) == -1);
        CHECK(answers.assertions() == "");
        m_pWndTabs->addDocument(pDocument);
    }
    SUBCASE("another drawing is the current one, not the active one, when the tabs are made anew")
    {
        AcApDocument* pSecond = open("b.dwg");
        app.documents().setCurrent(static_cast<host::Document*>(pDocument));
        CDocManagerReactor::getReactor()->refreshDocuments();
        CHECK(selected() == 1);
        app.documents().setCurrent(nullptr);
        click(0);
        CHECK(answers.assertions() == "ARXMDITabs: pCurrent != NULL\n");
        close(pSecond);
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
