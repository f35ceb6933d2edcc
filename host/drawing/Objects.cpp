#include "host/drawing/Objects.h"

#include "host/drawing/BlockObjects.h"
#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"
#include "host/drawing/TextObjects.h"
#include "host/drawing/UndoList.h"

namespace host {

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
    // The object is closed all the same: a caller cannot close it again.
    const Acad::ErrorStatus status = Faults::hit("AcDbObject::close") ? Acad::eNotOpenForRead : Acad::eOk;
    if (node.readers == 0 && !node.writer) {
        Database::countMisuse();
        return Acad::eNotOpenForRead;
    }
    node.database->countOpen(-1);
    if (node.readers > 0) {
        --node.readers;
        return status;
    }
    node.writer = false;
    if (node.modified) {
        node.modified = false;
        Notifier(*node.database).modified(node);
    }
    return status;
}

template <class Base>
AcDbDatabase* ObjectFace<Base>::database() const
{
    return m_node.database;
}

template <class Base>
bool ObjectFace<Base>::mayRead() const
{
    if (!m_node.isReadable())
        Database::countMisuse();
    return m_node.isReadable();
}

template class ObjectFace<AcDbEntity>;
template class ObjectFace<AcDbBlockTable>;
template class ObjectFace<AcDbBlockTableRecord>;
template class ObjectFace<AcDbBlockReference>;
template class ObjectFace<AcDbText>;
template class ObjectFace<AcDbAttribute>;

}  // namespace host

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObject, AcDbObjectId id, AcDb::OpenMode mode, bool bOpenErased)
{
    pObject = nullptr;
    if (host::Faults::hit("acdbOpenAcDbObject"))
        return Acad::eNullObjectId;
    return id.isNull() ? Acad::eNullObjectId : host::openAs(pObject, *id.stub(), mode, bOpenErased);
}

Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEntity, AcDbObjectId id, AcDb::OpenMode mode, bool bOpenErased)
{
    pEntity = nullptr;
    if (host::Faults::hit("acdbOpenAcDbEntity"))
        return Acad::eNullObjectId;
    return id.isNull() ? Acad::eNullObjectId : host::openAs(pEntity, *id.stub(), mode, bOpenErased);
}
