// The tabs and their balloon where drawings come and go; and what is reported of broken
// preconditions. How they follow the host is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
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

TEST_CASE_FIXTURE(ModuleFixture, "the mouse does nothing on the tab of a drawing that has gone without a word")
{
    user.set("MiddleClickCloses", 1);
    load();
    AcApDocument* pGone = open("a.dwg");
    open("b.dwg");
    host::Faults::failNth("AcApDocManagerReactor::documentToBeDestroyed", 1);
    close(pGone);
    host::Faults::clear();
    const Answers answers;
    Tesk::setDiagnosticsLevel(2);
    moveMouse(0);
    click(0);
    for (const auto message : std::initializer_list<UINT>{WM_MBUTTONDOWN, WM_MBUTTONUP})
        send(message, middleOf(0));
    CHECK(answers.assertions() == "");
    CHECK(app.commandLine().history().find("CARXMDITabs::getTooltip(") == std::string::npos);
    CHECK(app.commandLine().history().find("CARXMDITabs::closeDocument(") == std::string::npos);
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
