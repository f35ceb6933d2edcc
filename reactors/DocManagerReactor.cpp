#include "reactors/DocManagerReactor.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ARXVariable.h"
#include "library/drawing/WorkingDatabase.h"
#include "reactors/OpenDocuments.h"
#include "reactors/TabForwarders.h"

#include <memory>
#include <stdexcept>

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
    constexpr const char* sCall = "CDocManagerReactor::detach";
    Tesk::guarded(sCall, [] { m_pReactor->removeDocuments(); });
    // What the walk did not reach.
    while (!m_pReactor->m_mapDatabaseReactors.empty())
        m_pReactor->documentToBeDestroyed(m_pReactor->m_mapDatabaseReactors.begin()->first);
    Tesk::guarded(sCall, [] { acDocManager->removeReactor(m_pReactor); });
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
    if (pDocument->database() == nullptr)
        return false;
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
    if (m_mapDatabaseReactors.find(pDocument) != m_mapDatabaseReactors.end())
        return;
    auto pReactor = std::make_unique<CDatabaseReactor>();
    m_mapDatabaseReactors.emplace(pDocument, pReactor.get());
    CDatabaseReactor* const pAdded = pReactor.release();
    if (AcDbDatabase* const pDatabase = pDocument->database())
        pDatabase->addReactor(pAdded);
}

void CDocManagerReactor::removeDatabaseReactor(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::removeDatabaseReactor(\"%s\")\n", pDocument->fileName());
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    TESK_ASSERT(iter != m_mapDatabaseReactors.end());
    if (iter == m_mapDatabaseReactors.end())
        return;
    const std::unique_ptr<CDatabaseReactor> pReactor(iter->second);
    TESK_ASSERT(pReactor != NULL);
    m_mapDatabaseReactors.erase(iter);
    if (AcDbDatabase* const pDatabase = pDocument->database())
        pDatabase->removeReactor(pReactor.get());
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

void CDocManagerReactor::documentActivated(AcApDocument* pDocument)
{
    Tesk::guarded("CDocManagerReactor::documentActivated", [&] {
        TESK_TRACE("CDocManagerReactor::documentActivated(\"%s\")\n", pDocument->fileName());
        tabsActivateDocument(pDocument);
    });
}
