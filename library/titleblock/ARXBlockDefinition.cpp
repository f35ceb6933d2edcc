#include "library/titleblock/ARXBlockDefinition.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ObjectPointer.h"
#include "objectarx/dbsymtb.h"

namespace Tesk {

CARXBlockDefinition::CARXBlockDefinition(AcDbDatabase* pDatabase, const char* sBlockName)
    : m_pDatabase(pDatabase), m_sBlockName(sBlockName)
{
}

bool CARXBlockDefinition::exists(bool& bExists) const
{
    CObjectPointer<AcDbBlockTable> pBlockTable;
    const bool bOpened = m_pDatabase->getSymbolTable(pBlockTable.out(), AcDb::kForRead) == Acad::eOk;
    TESK_ASSERT_TEXT(bOpened, "m_pDatabase->getSymbolTable(pBlockTable, AcDb::kForRead) == Acad::eOk");
    if (!bOpened)
        return false;
    bExists = pBlockTable->has(m_sBlockName);
    TESK_VERIFY_TEXT(pBlockTable.close() == Acad::eOk, "pBlockTable->close() == Acad::eOk");
    return true;
}

AcDbObjectId CARXBlockDefinition::firstReference() const
{
    CObjectPointer<AcDbBlockTable> pBlockTable;
    if (const bool bOpened = m_pDatabase->getSymbolTable(pBlockTable.out(), AcDb::kForRead) == Acad::eOk; !bOpened) {
        TESK_ASSERT_TEXT(bOpened, "m_pDatabase->getSymbolTable(pBlockTable, AcDb::kForRead) == Acad::eOk");
        return {};
    }
    CObjectPointer<AcDbBlockTableRecord> pRecord;
    const bool bFound = pBlockTable->getAt(m_sBlockName, pRecord.out(), AcDb::kForRead) == Acad::eOk;
    TESK_ASSERT_TEXT(bFound, "pBlockTable->getAt(sBorder, pBlockTableRecord, AcDb::kForRead) == Acad::eOk");
    TESK_VERIFY_TEXT(pBlockTable.close() == Acad::eOk, "pBlockTable->close() == Acad::eOk");
    if (!bFound)
        return {};

    AcDbObjectIdArray ids;
    TESK_VERIFY_TEXT(pRecord->getBlockReferenceIds(ids) == Acad::eOk,
                     "pBlockTableRecord->getBlockReferenceIds(arrayBlockReferenceIDs) == Acad::eOk");
    const AcDbObjectId idFirst = ids.isEmpty() ? AcDbObjectId() : ids[0];
    TESK_VERIFY_TEXT(pRecord.close() == Acad::eOk, "pBlockTableRecord->close() == Acad::eOk");
    return idFirst;
}

}  // namespace Tesk
