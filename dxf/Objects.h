#pragma once

// The API's object classes as thin faces of nodes. One face a node, alive as
// long as the node, so that a call on a closed object is told from a good one:
// it counts as a misuse and answers null, zero or a status.

#include "objectarx/dbents.h"
#include "objectarx/dbsymtb.h"

#include "dxf/Drawing.h"

#include <memory>

namespace dxf {

// The face that suits the node's kind.
std::unique_ptr<AcDbObject> newObject(AcDbStub& node);

// Opens a node by the rules of the API: many readers or one writer.
Acad::ErrorStatus openNode(AcDbStub& node, AcDb::OpenMode mode, bool openErased);
Acad::ErrorStatus closeNode(AcDbStub& node);

// Opens the node of the id and gives it as the class asked for; null on failure.
template <class Object>
Acad::ErrorStatus openAs(Object*& pObject, AcDbStub& node, AcDb::OpenMode mode, bool openErased)
{
    pObject = nullptr;
    const Acad::ErrorStatus status = openNode(node, mode, openErased);
    if (status != Acad::eOk)
        return status;
    pObject = Object::cast(&node.object());
    if (pObject == nullptr) {
        closeNode(node);
        return Acad::eNotThatKindOfClass;
    }
    return Acad::eOk;
}

// What every face shares.
template <class Base>
class ObjectFace : public Base {
public:
    explicit ObjectFace(AcDbStub& node) : m_node(node) {}

    Acad::ErrorStatus close() override { return closeNode(m_node); }
    AcDbObjectId objectId() const override { return AcDbObjectId(&m_node); }
    void getAcDbHandle(AcDbHandle& handle) const override { handle = AcDbHandle(m_node.handle); }
    AcDbDatabase* database() const override { return m_node.database; }

protected:
    // Counts a misuse when the object is not open.
    bool mayRead() const
    {
        if (!m_node.isReadable())
            Drawing::countMisuse();
        return m_node.isReadable();
    }
    AcDbStub& node() const { return m_node; }

private:
    AcDbStub& m_node;
};

}  // namespace dxf
