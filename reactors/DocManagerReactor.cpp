#include "reactors/DocManagerReactor.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ARXVariable.h"
#include "library/drawing/WorkingDatabase.h"
#include "module/TabForwarders.h"
#include "reactors/EditorReactor.h"
#include "reactors/OpenDocuments.h"

#include <stdexcept>
#include <utility>

CDocManagerReactor* CDocManagerReactor::m_pReactor = nullptr;

CDocManagerReactor::~CDocManagerReactor() = default;

void CDocManagerReactor::attach()
{
    TESK_TRACE("CDocManagerReactor::attach()\n");
    TESK_ASSERT(m_pReactor == NULL);
    if (m_pReactor != nullptr)
        return;
    m_pReactor = new CDocManagerReactor;
    acDocManager->addReactor(m_pReactor);
    m_pReactor->addDocuments();
}

void CDocManagerReactor::detach()
{
    TESK_TRACE("CDocManagerReactor::detach()\n");
    TESK_ASSERT(m_pReactor != NULL);
    if (m_pReactor == nullptr)
        return;
    m_pReactor->removeDocuments();
    acDocManager->removeReactor(m_pReactor);
    delete m_pReactor;
    m_pReactor = nullptr;
}

CDocManagerReactor* CDocManagerReactor::getReactor()
{
    TESK_ASSERT(m_pReactor != NULL);
    return m_pReactor;
}

bool CDocManagerReactor::isDatabaseModified(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::isDatabaseModified(...)\n");
    // DBMOD answers for the working database alone.
    const Tesk::CWorkingDatabase scope(pDocument->database());
    Tesk::CARXVariable variable("DBMOD");
    variable.read();
    return variable.getShort() != 0;
}

void CDocManagerReactor::addDocuments()
{
    TESK_TRACE("CDocManagerReactor::addDocuments()\n");
    forEachDocument([this](AcApDocument* pDocument) { documentCreated(pDocument); });
    // Without an open drawing there is none to select.
    if (AcApDocument* pActive = acDocManager->mdiActiveDocument())
        documentActivated(pActive);
}

void CDocManagerReactor::removeDocuments()
{
    TESK_TRACE("CDocManagerReactor::removeDocuments()\n");
    forEachDocument([this](AcApDocument* pDocument) { documentToBeDestroyed(pDocument); });
}

void CDocManagerReactor::refreshDocuments()
{
    removeDocuments();
    addDocuments();
}

void CDocManagerReactor::addDatabaseReactor(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::addDatabaseReactor(\"%s\")\n", pDocument->fileName());
    TESK_ASSERT(m_mapDatabaseReactors.find(pDocument) == m_mapDatabaseReactors.end());
    // A listener that is there already stays: it is still registered with the drawing.
    const auto [iter, bNew] = m_mapDatabaseReactors.try_emplace(pDocument);
    if (!bNew)
        return;
    iter->second.pReactor = std::make_unique<CDatabaseReactor>();
    iter->second.sFileName = pDocument->fileName();
    iter->second.listenTo(pDocument->database());
}

void CDocManagerReactor::removeDatabaseReactor(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::removeDatabaseReactor(\"%s\")\n", pDocument->fileName());
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    TESK_ASSERT(iter != m_mapDatabaseReactors.end());
    if (iter == m_mapDatabaseReactors.end())
        return;
    TESK_ASSERT_TEXT(iter->second.pReactor != NULL, "pReactor != NULL");
    iter->second.listenTo(nullptr);
    m_mapDatabaseReactors.erase(iter);
}

void CDocManagerReactor::Listener::listenTo(AcDbDatabase* pNew)
{
    if (AcDbDatabase* pOld = std::exchange(pDatabase, nullptr))
        pOld->removeReactor(pReactor.get());
    if (pNew != nullptr && pReactor != nullptr && pNew->addReactor(pReactor.get()) == Acad::eOk)
        pDatabase = pNew;
}

bool CDocManagerReactor::followDatabase(AcApDocument* pDocument)
{
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    if (iter == m_mapDatabaseReactors.end() || iter->second.pDatabase == pDocument->database())
        return false;
    iter->second.listenTo(pDocument->database());
    updateDatabaseModifiedFlag(pDocument);
    return true;
}

void CDocManagerReactor::forgetDatabase(const AcDbDatabase* pDatabase)
{
    for (auto& entry : m_mapDatabaseReactors)
        if (entry.second.pDatabase == pDatabase)
            entry.second.listenTo(nullptr);
}

void CDocManagerReactor::lookAgain(AcApDocument* pDocument)
{
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    if (iter == m_mapDatabaseReactors.end() || followDatabase(pDocument))
        return;
    const bool bRenamed = iter->second.sFileName.Compare(pDocument->fileName()) != 0;
    if (bRenamed && CEditorReactor::isAttached())
        CEditorReactor::getReactor()->forget(pDocument->database());
    if (bRenamed || wasDatabaseModified(pDocument) != isDatabaseModified(pDocument))
        updateDatabaseModifiedFlag(pDocument);
}

bool CDocManagerReactor::wasDatabaseModified(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::wasDatabaseModified(...)\n");
    auto iter = m_mapDatabaseModified.find(pDocument);
    if (iter == m_mapDatabaseModified.end())
        iter = m_mapDatabaseModified.emplace(pDocument, isDatabaseModified(pDocument)).first;
    return iter->second;
}

void CDocManagerReactor::updateDatabaseModifiedFlag(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::updateDatabaseModifiedFlag(...)\n");
    TESK_ASSERT(pDocument != NULL);
    if (pDocument == nullptr)
        return;
    m_mapDatabaseModified.insert_or_assign(pDocument, isDatabaseModified(pDocument));
    tabsUpdateDocumentModified(pDocument);
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    if (iter != m_mapDatabaseReactors.end())
        iter->second.sFileName = pDocument->fileName();
}

void CDocManagerReactor::removeDatabaseModifiedFlag(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::removeDatabaseModifiedFlag(...)\n");
    // Every document that was announced has an entry, so a missing one is an error.
    if (m_mapDatabaseModified.erase(pDocument) == 0)
        throw std::out_of_range("invalid map/set<T> iterator");
}

void CDocManagerReactor::documentCreated(AcApDocument* pDocument)
{
    Tesk::guarded("CDocManagerReactor::documentCreated", [&] {
        TESK_TRACE("CDocManagerReactor::documentCreated(\"%s\")\n", pDocument->fileName());
        addDatabaseReactor(pDocument);
        m_mapDatabaseModified.insert_or_assign(pDocument, isDatabaseModified(pDocument));
        tabsAddDocument(pDocument);
    });
}

void CDocManagerReactor::documentToBeDestroyed(AcApDocument* pDocument)
{
    // A guard a step: nothing may keep the listener, which the drawing would go on calling.
    constexpr const char* sCall = "CDocManagerReactor::documentToBeDestroyed";
    Tesk::guarded(sCall, [&] {
        TESK_TRACE("CDocManagerReactor::documentToBeDestroyed(\"%s\")\n", pDocument->fileName());
        tabsRemoveDocument(pDocument);
    });
    Tesk::guarded(sCall, [&] { removeDatabaseModifiedFlag(pDocument); });
    Tesk::guarded(sCall, [&] { removeDatabaseReactor(pDocument); });
}

void CDocManagerReactor::documentDestroyed(const char*)
{
    Tesk::guarded("CDocManagerReactor::documentDestroyed", &tabsDocumentDestroyed);
}

void CDocManagerReactor::documentActivated(AcApDocument* pDocument)
{
    Tesk::guarded("CDocManagerReactor::documentActivated", [&] {
        TESK_TRACE("CDocManagerReactor::documentActivated(\"%s\")\n", pDocument->fileName());
        tabsActivateDocument(pDocument);
        lookAgain(pDocument);
    });
}
