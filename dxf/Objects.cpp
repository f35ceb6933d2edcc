#include "dxf/Objects.h"

#include "dxf/ApiCalls.h"
#include "dxf/BlockObjects.h"
#include "dxf/TextObjects.h"

#include "objectarx/dbapserv.h"

#include <utility>

namespace dxf {

std::unique_ptr<AcDbObject> newObject(AcDbStub& node)
{
    switch (node.kind) {
    case NodeKind::BlockTable:
        return std::make_unique<BlockTable>(node);
    case NodeKind::BlockRecord:
        return std::make_unique<BlockTableRecord>(node);
    case NodeKind::BlockReference:
        return std::make_unique<BlockReference>(node);
    case NodeKind::Attribute:
        return std::make_unique<Attribute>(node);
    case NodeKind::Text:
        return std::make_unique<TextFace<AcDbText>>(node);
    default:
        return std::make_unique<ObjectFace<AcDbEntity>>(node);
    }
}

Acad::ErrorStatus openNode(AcDbStub& node, AcDb::OpenMode mode, bool openErased)
{
    if (node.erased && !openErased)
        return Acad::eWasErased;
    if (mode != AcDb::kForNotify) {
        if (node.writer)
            return Acad::eWasOpenForWrite;
        if (mode == AcDb::kForWrite && node.readers > 0)
            return Acad::eWasOpenForRead;
    }
    if (mode == AcDb::kForWrite)
        node.writer = true;
    else
        ++node.readers;
    node.database->countOpen(1);
    return Acad::eOk;
}

Acad::ErrorStatus closeNode(AcDbStub& node)
{
    if (node.readers == 0 && !node.writer) {
        Drawing::countMisuse();
        return Acad::eNotOpenForRead;
    }
    node.database->countOpen(-1);
    if (node.readers > 0) {
        --node.readers;
        return Acad::eOk;
    }
    node.writer = false;
    if (std::exchange(node.modified, false))
        node.database->tellModified(node);
    return Acad::eOk;
}

}  // namespace dxf

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObject, AcDbObjectId id, AcDb::OpenMode mode, bool bOpenErased)
{
    pObject = nullptr;
    if (dxf::callFails("acdbOpenAcDbObject"))
        return Acad::eNullObjectId;
    return id.isNull() ? Acad::eNullObjectId : dxf::openAs(pObject, *id.stub(), mode, bOpenErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEntity, AcDbObjectId id, AcDb::OpenMode mode, bool bOpenErased)
{
    pEntity = nullptr;
    if (dxf::callFails("acdbOpenAcDbEntity"))
        return Acad::eNullObjectId;
    return id.isNull() ? Acad::eNullObjectId : dxf::openAs(pEntity, *id.stub(), mode, bOpenErased);
}

int acdbHandEnt(const char* sHandle, ads_name entity)
{
    entity[0] = entity[1] = 0;
    dxf::Drawing* pDatabase = dxf::Drawing::of(acdbHostApplicationServices()->workingDatabase());
    if (dxf::callFails("acdbHandEnt") || sHandle == nullptr || pDatabase == nullptr)
        return RTERROR;
    AcDbStub* pNode = pDatabase->graph().find(dxf::toHandle(sHandle));
    if (pNode == nullptr || !pNode->isEntity() || pNode->erased)
        return RTERROR;
    entity[0] = reinterpret_cast<LONG_PTR>(pNode);
    return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity)
{
    id = AcDbObjectId();
    if (dxf::callFails("acdbGetObjectId") || entity == nullptr || entity[0] == 0)
        return Acad::eInvalidInput;
    id = AcDbObjectId(reinterpret_cast<AcDbStub*>(entity[0]));
    return Acad::eOk;
}
