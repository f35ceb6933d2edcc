#include "reactors/DatabaseData.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "library/drawing/ObjectPointer.h"
#include "library/drawing/WorkingDatabase.h"
#include "objectarx/acdocman.h"
#include "objectarx/dbsymtb.h"

#include <memory>
#include <stdexcept>

namespace {

// A reference that is drawn: neither a layout nor anonymous, and used by the drawing.
bool isAttachedXref(const AcDbBlockTableRecord& record)
{
    return !record.isAnonymous() && !record.isLayout() && record.isFromExternalReference() &&
           record.xrefStatus() != AcDb::kXrfUnreferenced;
}

void appendXrefPath(const AcDbBlockTableRecord& record, std::vector<CString>& vecPaths)
{
    if (!isAttachedXref(record))
        return;
    const AcDbDatabase* pXrefDatabase = record.xrefDatabase(false);
    if (pXrefDatabase == nullptr)
        return;
    const char* sPath = acdbOriginalXrefFullPathFor(pXrefDatabase);
    TESK_ASSERT_TEXT(sPath != NULL, "szPath != NULL");
    if (sPath != nullptr)
        vecPaths.push_back(sPath);
}

}  // namespace

CDatabaseData::CDatabaseData(AcDbDatabase* pDatabase) : m_pDatabase(pDatabase)
{
    if (m_pDatabase == nullptr) {
        m_keywordExpansion.emplace("", 1, 1);
        return;
    }
    const Tesk::CWorkingDatabase workingDatabase(m_pDatabase);
    try {
        read();
    } catch (...) {
        TESK_TRACE("Unhandled exception in CDatabaseData construction ...\n");
        throw;
    }
}

void CDatabaseData::read()
{
    m_pDocument = acDocManager->document(m_pDatabase);
    if (m_pDocument == nullptr)
        throw std::invalid_argument("no document owns the drawing");
    m_vecXrefPaths = getXrefPaths();
    m_drawingProperties = Tesk::CARXDrawingProperties(m_pDatabase);
    m_keywordExpansion.emplace(m_pDatabase, Tesk::fileNameOf(m_pDocument), 1, 1);
}

std::vector<CString> CDatabaseData::getXrefPaths() const
{
    TESK_TRACE("CDatabaseData::getXrefPaths()\n");
    TESK_ASSERT(m_pDatabase != NULL);
    std::vector<CString> vecPaths;
    Tesk::CObjectPointer<AcDbBlockTable> pBlockTable;
    if (m_pDatabase == nullptr || m_pDatabase->getSymbolTable(pBlockTable.out(), AcDb::kForRead) != Acad::eOk)
        return vecPaths;

    AcDbBlockTableIterator* pFirst = nullptr;
    if (pBlockTable->newIterator(pFirst, true, true) == Acad::eOk) {
        const std::unique_ptr<AcDbBlockTableIterator> pIterator(pFirst);
        for (; !pIterator->done(); pIterator->step()) {
            Tesk::CObjectPointer<AcDbBlockTableRecord> pBTR;
            if (pIterator->getRecord(pBTR.out(), AcDb::kForRead) != Acad::eOk)
                continue;
            appendXrefPath(*pBTR.get(), vecPaths);
            TESK_VERIFY_TEXT(pBTR.close() == Acad::eOk, "pBTR->close() == Acad::eOk");
        }
    }
    TESK_VERIFY_TEXT(pBlockTable.close() == Acad::eOk, "pBlockTable->close() == Acad::eOk");
    return vecPaths;
}
