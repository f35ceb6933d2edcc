#include "library/titleblock/ARXTitleBlock.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ObjectPointer.h"
#include "library/drawing/WorkingDatabase.h"
#include "library/titleblock/ARXBlockDefinition.h"

#include <memory>
#include <optional>

namespace Tesk {

namespace {

// A failure is reported as the call with that text.
bool open(CObjectPointer<AcDbObject>& pObject, AcDbObjectId id, AcDb::OpenMode eMode, const char* sCall)
{
    const bool bOpened = acdbOpenAcDbObject(pObject.out(), id, eMode) == Acad::eOk;
    TESK_ASSERT_TEXT(bOpened, sCall);
    return bOpened;
}

}  // namespace

CARXTitleBlock::CARXTitleBlock(AcDbDatabase* pDatabase, const char* sFileName)
    : CTitleBlock(sFileName), m_pDatabase(pDatabase), m_sDrawingFileName(sFileName)
{
    TESK_ASSERT(m_pDatabase != NULL);
    search();
}

CARXTitleBlock::~CARXTitleBlock() { TESK_TRACE("%s()\n", "Tesk::CARXTitleBlock::~CARXTitleBlock"); }

bool CARXTitleBlock::hasDefinition(const char* sBlockName)
{
    TESK_ASSERT(sBlockName != NULL);
    TESK_ASSERT_TEXT(sBlockName != nullptr && *sBlockName != '\0', "_tcslen(sBlockName) > 0");
    hasBlock(m_pDatabase, sBlockName, m_bDefinition);
    TESK_TRACE("** sBlockName = \"%s\", m_bDefinition = %d\n", sBlockName, m_bDefinition);
    return m_bDefinition;
}

void CARXTitleBlock::findInstance(const char* sBorder)
{
    TESK_ASSERT(m_bDefinition);
    m_bInstance = false;
    const AcDbObjectId idReference = firstBlockReference(m_pDatabase, sBorder);
    if (idReference.isNull())
        return;
    CObjectPointer<AcDbEntity> pEntity;
    const bool bOpened = acdbOpenAcDbEntity(pEntity.out(), idReference, AcDb::kForRead) == Acad::eOk;
    TESK_ASSERT_TEXT(bOpened, "acdbOpenAcDbEntity(pEntity, arrayBlockReferenceIDs[0], AcDb::kForRead) == Acad::eOk");
    if (!bOpened)
        return;
    if (const AcDbBlockReference* pReference = AcDbBlockReference::cast(pEntity.get())) {
        AcDbHandle handleBorder;
        pReference->getAcDbHandle(handleBorder);
        TESK_ASSERT(!handleBorder.isNull());
        char sHandle[17] = "";
        handleBorder.getIntoAsciiBuffer(sHandle);
        m_sHandle = sHandle;
        m_bInstance = true;
    }
    TESK_VERIFY_TEXT(pEntity.close() == Acad::eOk, "pEntity->close() == Acad::eOk");
}

AcDbObjectId CARXTitleBlock::instanceId() const
{
    ads_name eBlockReference = {};
    AcDbObjectId idBlockReference;
    const bool bFound = acdbHandEnt(m_sHandle, eBlockReference) == RTNORM;
    TESK_ASSERT_TEXT(bFound, "ads_handent(hBlockReference, eBlockReference) == RTNORM");
    if (bFound)
        TESK_VERIFY(acdbGetObjectId(idBlockReference, eBlockReference) == Acad::eOk);
    return idBlockReference;
}

void CARXTitleBlock::readAttributes()
{
    TESK_ASSERT(m_bInstance);
    m_mapInstanceAttributes.clear();
    // A handle means something in the working database only.
    const bool bValidDB = m_pDatabase == acdbHostApplicationServices()->workingDatabase();
    TESK_ASSERT(bValidDB);
    std::optional<CWorkingDatabase> workingDatabase;
    if (!bValidDB)
        workingDatabase.emplace(m_pDatabase);

    CObjectPointer<AcDbObject> pObject;
    if (!open(pObject, instanceId(), AcDb::kForRead,
              "acdbOpenAcDbObject(pObject, idBlockReference, AcDb::kForRead) == Acad::eOk"))
        return;
    if (const AcDbBlockReference* pReference = AcDbBlockReference::cast(pObject.get())) {
        const std::unique_ptr<AcDbObjectIterator> pIterator(pReference->attributeIterator());
        TESK_ASSERT(pIterator != NULL);
        for (; pIterator != nullptr && !pIterator->done(); pIterator->step()) {
            CObjectPointer<AcDbObject> pEntry;
            if (!open(pEntry, pIterator->objectId(), AcDb::kForRead,
                      "acdbOpenAcDbObject(pAttribute, pIterator->objectId(), AcDb::kForRead) == Acad::eOk"))
                continue;
            if (const AcDbAttribute* pAttribute = AcDbAttribute::cast(pEntry.get())) {
                const CARXAttribute attribute(*pAttribute);
                m_mapInstanceAttributes.insert_or_assign(attribute.m_sTag, attribute);
            }
            TESK_VERIFY_TEXT(pEntry.close() == Acad::eOk, "pAttribute->close() == Acad::eOk");
        }
    }
    TESK_VERIFY_TEXT(pObject.close() == Acad::eOk, "pObject->close() == Acad::eOk");
}

AcDbObjectId CARXTitleBlock::attributeId(const char* sTag) const
{
    TESK_ASSERT(m_bInstance);
    const auto iterAttribute = m_mapInstanceAttributes.find(sTag);
    return iterAttribute == m_mapInstanceAttributes.end() ? AcDbObjectId() : iterAttribute->second.m_idObject;
}

CString CARXTitleBlock::getAttributeValue(const char* sTag)
{
    const AcDbObjectId id = attributeId(sTag);
    CObjectPointer<AcDbObject> pObject;
    if (id.isNull() ||
        !open(pObject, id, AcDb::kForRead, "acdbOpenAcDbObject(pObject, idAttribute, AcDb::kForRead) == Acad::eOk"))
        return CString();
    CString sValue;
    const AcDbAttribute* pAttribute = AcDbAttribute::cast(pObject.get());
    TESK_ASSERT(pAttribute != NULL);
    if (pAttribute != nullptr)
        sValue = CUtilityString(pAttribute->textString()).text();
    TESK_VERIFY_TEXT(pObject.close() == Acad::eOk, "pObject->close() == Acad::eOk");
    return sValue;
}

bool CARXTitleBlock::setAttributeValue(const char* sTag, const char* sValue)
{
    const AcDbObjectId id = attributeId(sTag);
    CObjectPointer<AcDbObject> pObject;
    if (id.isNull() ||
        !open(pObject, id, AcDb::kForWrite, "acdbOpenAcDbObject(pObject, idAttribute, AcDb::kForWrite) == Acad::eOk"))
        return false;
    AcDbAttribute* pAttribute = AcDbAttribute::cast(pObject.get());
    TESK_ASSERT(pAttribute != NULL);
    if (pAttribute == nullptr)
        return false;
    TESK_VERIFY(pAttribute->setTextString(sValue) == Acad::eOk);
    const bool bClosed = pObject.close() == Acad::eOk;
    TESK_ASSERT_TEXT(bClosed, "pObject->close() == Acad::eOk");
    return bClosed;
}

std::vector<CString> CARXTitleBlock::getTags() const
{
    std::vector<CString> vecTags;
    for (const auto& [sTag, attribute] : m_mapInstanceAttributes)
        vecTags.push_back(sTag);
    return vecTags;
}

bool CARXTitleBlock::hasAttribute(const char* sTag) { return m_mapInstanceAttributes.count(sTag) != 0; }

}  // namespace Tesk
