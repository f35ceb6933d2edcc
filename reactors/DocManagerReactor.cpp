#include "reactors/DocManagerReactor.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ARXVariable.h"
#include "library/drawing/DocumentName.h"
#include "library/drawing/WorkingDatabase.h"
#include "reactors/OpenDocuments.h"
#include "reactors/TabForwarders.h"

#include <stdexcept>
#include <utility>

namespace {

// A listener and its place with the drawing, which is remembered: a document that goes may
// not name it any more, and a document that has gone cannot be asked.
class CRegisteredReactor final : public CDatabaseReactor {
public:
    explicit CRegisteredReactor(AcDbDatabase* pDatabase) : m_pDatabase(pDatabase)
    {
        if (m_pDatabase != nullptr)
            m_pDatabase->addReactor(this);
    }
    ~CRegisteredReactor() override
    {
        Tesk::guarded("CDatabaseReactor::removeReactor", [this] {
            if (m_pDatabase != nullptr)
                m_pDatabase->removeReactor(this);
        });
    }
    CRegisteredReactor(const CRegisteredReactor&) = delete;
    CRegisteredReactor& operator=(const CRegisteredReactor&) = delete;

    // The document's own, which may be another by now (in single-drawing mode it is).
    void belongTo(const AcDbDatabase* pDatabase)
    {
        if (pDatabase != nullptr)
            m_pDatabase = pDatabase;
    }

    // A drawing that no open document has may have gone without a word, and is not asked.
    void forgetUnlessOpen()
    {
        bool bOpen = false;
        Tesk::guarded("CDatabaseReactor::removeReactor", [&] {
            forEachDocument([&](const AcApDocument* pDocument) { bOpen |= pDocument->database() == m_pDatabase; });
        });
        if (!bOpen)
            m_pDatabase = nullptr;
    }

private:
    const AcDbDatabase* m_pDatabase;  // the host's
};

void discard(CDatabaseReactor* pReactor)
{
    if (pReactor != nullptr)
        static_cast<CRegisteredReactor*>(pReactor)->forgetUnlessOpen();
    delete pReactor;
}

}  // namespace

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
    // What the walk did not reach; the documents of these may have gone.
    for (const auto& [pDocument, pReactor] : m_pReactor->m_mapDatabaseReactors)
        discard(pReactor);
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
    AcDbDatabase* const pDatabase = pDocument->database();
    if (pDatabase == nullptr)
        return false;
    // DBMOD answers for the working database alone.
    const Tesk::CWorkingDatabase scope(pDatabase);
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
    TESK_TRACE("CDocManagerReactor::addDatabaseReactor(\"%s\")\n", Tesk::fileNameOf(pDocument));
    TESK_ASSERT(m_mapDatabaseReactors.find(pDocument) == m_mapDatabaseReactors.end());
    CDatabaseReactor*& pReactor = m_mapDatabaseReactors[pDocument];
    discard(std::exchange(pReactor, nullptr));
    pReactor = new CRegisteredReactor(pDocument->database());
}

void CDocManagerReactor::removeDatabaseReactor(AcApDocument* pDocument)
{
    TESK_TRACE("CDocManagerReactor::removeDatabaseReactor(\"%s\")\n", Tesk::fileNameOf(pDocument));
    const auto iter = m_mapDatabaseReactors.find(pDocument);
    TESK_ASSERT(iter != m_mapDatabaseReactors.end());
    if (iter == m_mapDatabaseReactors.end())
        return;
    CDatabaseReactor* const pReactor = iter->second;
    TESK_ASSERT(pReactor != NULL);
    if (pReactor != nullptr)
        static_cast<CRegisteredReactor*>(pReactor)->belongTo(pDocument->database());
    delete pReactor;
    m_mapDatabaseReactors.erase(iter);
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
        TESK_TRACE("CDocManagerReactor::documentCreated(\"%s\")\n", Tesk::fileNameOf(pDocument));
        addDatabaseReactor(pDocument);
        // A state that cannot be read costs no tab: it counts as unmodified until the
        // listener finds it otherwise.
        bool bModified = false;
        Tesk::guarded("CDocManagerReactor::isDatabaseModified", [&] { bModified = isDatabaseModified(pDocument); });
        m_mapDatabaseModified.insert_or_assign(pDocument, bModified);
        tabsAddDocument(pDocument);
    });
}

void CDocManagerReactor::documentToBeDestroyed(AcApDocument* pDocument)
{
    // A guard a step: nothing may keep the listener, which the drawing would go on calling.
    constexpr const char* sCall = "CDocManagerReactor::documentToBeDestroyed";
    Tesk::guarded(sCall, [&] {
        TESK_TRACE("CDocManagerReactor::documentToBeDestroyed(\"%s\")\n", Tesk::fileNameOf(pDocument));
        tabsRemoveDocument(pDocument);
    });
    Tesk::guarded(sCall, [&] { removeDatabaseModifiedFlag(pDocument); });
    Tesk::guarded(sCall, [&] { removeDatabaseReactor(pDocument); });
}

void CDocManagerReactor::documentActivated(AcApDocument* pDocument)
{
    Tesk::guarded("CDocManagerReactor::documentActivated", [&] {
        TESK_TRACE("CDocManagerReactor::documentActivated(\"%s\")\n", Tesk::fileNameOf(pDocument));
        tabsActivateDocument(pDocument);
    });
}
