#include "reactors/EditorReactor.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "reactors/DocManagerReactor.h"
#include "reactors/OpenDocuments.h"

namespace {

inline AcDbDatabase* databaseOf(AcApDocument* pDocument)
{
    TESK_ASSERT(pDocument != NULL);
    AcDbDatabase* pDatabase = pDocument != nullptr ? pDocument->database() : nullptr;
    TESK_ASSERT(pDatabase != NULL);
    return pDatabase;
}

}  // namespace

CEditorReactor* CEditorReactor::m_pReactor = nullptr;

void CEditorReactor::attach()
{
    TESK_TRACE("CEditorReactor::attach()\n");
    TESK_ASSERT(m_pReactor == NULL);
    if (m_pReactor != nullptr)
        return;
    m_pReactor = new CEditorReactor;
    acedEditor->addReactor(m_pReactor);
    m_pReactor->addDocuments();
}

void CEditorReactor::detach()
{
    TESK_TRACE("CEditorReactor::detach()\n");
    TESK_ASSERT(m_pReactor != NULL);
    if (m_pReactor == nullptr)
        return;
    constexpr const char* sCall = "CEditorReactor::detach";
    Tesk::guarded(sCall, [] { m_pReactor->removeDocuments(); });
    Tesk::guarded(sCall, [] { acedEditor->removeReactor(m_pReactor); });
    delete m_pReactor;
    m_pReactor = nullptr;
}

CEditorReactor* CEditorReactor::getReactor()
{
    TESK_ASSERT(m_pReactor != NULL);
    return m_pReactor;
}

CEditorReactor::~CEditorReactor() = default;

void CEditorReactor::addDocuments()
{
    TESK_TRACE("CEditorReactor::addDocuments()\n");
    forEachDocument([this](AcApDocument* pDocument) {
        if (AcDbDatabase* pDwg = pDocument->database())
            Tesk::guarded("CEditorReactor::addDocuments", [&] { refresh(pDwg); });
    });
}

void CEditorReactor::removeDocuments()
{
    TESK_TRACE("CEditorReactor::removeDocuments()\n");
    forEachDocument([this](AcApDocument* pDocument) {
        if (AcDbDatabase* pDwg = pDocument->database())
            m_mapDatabaseData.erase(pDwg);
    });
}

CDatabaseData& CEditorReactor::getDatabaseData(AcApDocument* pDocument)
{
    AcDbDatabase* pDwg = databaseOf(pDocument);
    const auto iterData = m_mapDatabaseData.find(pDwg);
    return iterData != m_mapDatabaseData.end() ? iterData->second : refresh(pDwg);
}

// The entry changes only once the new data is complete; a new one is made in its place.
CDatabaseData& CEditorReactor::refresh(AcDbDatabase* pDwg)
{
    if (m_mapDatabaseData.count(pDwg) == 0)
        return m_mapDatabaseData.emplace(pDwg, pDwg).first->second;
    return m_mapDatabaseData.insert_or_assign(pDwg, CDatabaseData(pDwg)).first->second;
}

void CEditorReactor::dwgFileOpened(AcDbDatabase* pDwg, char* fileName)
{
    Tesk::guarded("CEditorReactor::dwgFileOpened", [&] {
        TESK_TRACE("CEditorReactor::dwgFileOpened(\"%s\")\n", fileName);
        refreshOfDocument(pDwg);
    });
}

void CEditorReactor::dxfInComplete(AcDbDatabase* pDwg)
{
    Tesk::guarded("CEditorReactor::dxfInComplete", [&] {
        TESK_TRACE("CEditorReactor::dxfInComplete()\n");
        refreshOfDocument(pDwg);
    });
}

// What is read for other purposes is not kept.
void CEditorReactor::refreshOfDocument(AcDbDatabase* pDwg)
{
    if (acDocManager->document(pDwg) != nullptr)
        refresh(pDwg);
}

void CEditorReactor::databaseToBeDestroyed(AcDbDatabase* pDwg)
{
    Tesk::guarded("CEditorReactor::databaseToBeDestroyed", [&] {
        TESK_TRACE("CEditorReactor::databaseToBeDestroyed(...)\n");
        m_mapDatabaseData.erase(pDwg);
    });
}

void CEditorReactor::saveComplete(AcDbDatabase* pDwg, const char* pActualName)
{
    Tesk::guarded("CEditorReactor::saveComplete", [&] {
        TESK_TRACE("CEditorReactor::saveComplete(\"%s\")\n", pActualName);
        AcApDocument* pDocument = acDocManager->document(pDwg);
        if (pDocument == nullptr)
            return;
        refresh(pDwg);
        if (CDocManagerReactor* pReactor = CDocManagerReactor::getReactor())
            pReactor->updateDatabaseModifiedFlag(pDocument);
    });
}
