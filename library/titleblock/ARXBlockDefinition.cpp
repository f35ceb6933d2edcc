#include "library/titleblock/ARXBlockDefinition.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ObjectPointer.h"
#include "objectarx/dbsymtb.h"

namespace Tesk {

namespace {

using BlockTable = CObjectPointer<AcDbBlockTable>;

bool open(BlockTable& pBlockTable, AcDbDatabase* pDatabase)
{
    const bool bOpened = pDatabase->getSymbolTable(pBlockTable.out(), AcDb::kForRead) == Acad::eOk;
    TESK_ASSERT_TEXT(bOpened, "m_pDatabase->getSymbolTable(pBlockTable, AcDb::kForRead) == Acad::eOk");
    return bOpened;
}

void close(BlockTable& pBlockTable)
{
    TESK_VERIFY_TEXT(pBlockTable.close() == Acad::eOk, "pBlockTable->close() == Acad::eOk");
}

}  // namespace

void hasBlock(AcDbDatabase* pDatabase, const char* sBlockName, bool& bHas)
{
    BlockTable pBlockTable;
    if (!open(pBlockTable, pDatabase))
        return;
    bHas = pBlockTable->has(sBlockName);
    close(pBlockTable);
}

AcDbObjectId firstBlockReference(AcDbDatabase* pDatabase, const char* sBlockName)
{
    BlockTable pBlockTable;
    if (!open(pBlockTable, pDatabase))
        return {};
    CObjectPointer<AcDbBlockTableRecord> pRecord;
    const bool bFound = pBlockTable->getAt(sBlockName, pRecord.out(), AcDb::kForRead) == Acad::eOk;
    TESK_ASSERT_TEXT(bFound, "pBlockTable->getAt(sBorder, pBlockTableRecord, AcDb::kForRead) == Acad::eOk");
    close(pBlockTable);
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
