#include "dxf/BlockObjects.h"

#include "dxf/ApiCalls.h"
#include "dxf/Drawing.h"

namespace dxf {

bool BlockTable::has(const char* sName) const
{
    if (!mayRead() || sName == nullptr)
        return false;
    return node().database->graph().block(sName) != nullptr;
}

Acad::ErrorStatus BlockTable::getAt(const char* sName, AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                                    bool bOpenErased) const
{
    pRecord = nullptr;
    if (sName == nullptr)
        return Acad::eInvalidInput;
    if (!mayRead())
        return Acad::eNotOpenForRead;
    BlockNode* pBlock = node().database->graph().block(sName);
    return pBlock == nullptr ? Acad::eKeyNotFound : openAs(pRecord, *pBlock, mode, bOpenErased);
}

Acad::ErrorStatus BlockTable::newIterator(AcDbBlockTableIterator*& pIterator, bool bAtBeginning,
                                          bool bSkipDeleted) const
{
    pIterator = nullptr;
    if (!mayRead())
        return Acad::eNotOpenForRead;
    pIterator = new BlockTableIterator(node().database->graph(), bAtBeginning, bSkipDeleted);
    return Acad::eOk;
}

BlockTableIterator::BlockTableIterator(const ObjectGraph& graph, bool atBeginning, bool skipDeleted)
    : m_blocks(graph.blocks()), m_position(atBeginning ? 0 : std::ssize(graph.blocks()) - 1)
{
    skip(atBeginning, skipDeleted);
}

bool BlockTableIterator::done() const { return m_position < 0 || m_position >= std::ssize(m_blocks); }

void BlockTableIterator::step(bool bForward, bool bSkipDeleted)
{
    m_position += bForward ? 1 : -1;
    skip(bForward, bSkipDeleted);
}

void BlockTableIterator::skip(bool forward, bool skipDeleted)
{
    while (skipDeleted && !done() && m_blocks[static_cast<std::size_t>(m_position)]->erased)
        m_position += forward ? 1 : -1;
}

Acad::ErrorStatus BlockTableIterator::getRecord(AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                                                bool bOpenErased) const
{
    pRecord = nullptr;
    if (done())
        return Acad::eInvalidIndex;
    return openAs(pRecord, *m_blocks[static_cast<std::size_t>(m_position)], mode, bOpenErased);
}

bool BlockTableRecord::isAnonymous() const
{
    if (!mayRead())
        return false;
    return (block().flags & 1) != 0;
}

bool BlockTableRecord::isLayout() const
{
    if (!mayRead())
        return false;
    return block().layout;
}

bool BlockTableRecord::isFromExternalReference() const
{
    if (!mayRead())
        return false;
    return block().isXref();
}

AcDb::XrefStatus BlockTableRecord::xrefStatus() const
{
    if (!mayRead() || !block().isXref())
        return AcDb::kXrfNotAnXref;
    if (block().unloaded)
        return AcDb::kXrfUnloaded;
    return block().isReferenced() ? block().status : AcDb::kXrfUnreferenced;
}

AcDbDatabase* BlockTableRecord::xrefDatabase(bool) const
{
    // What is not resolved has no database here, so there is none to include.
    if (!mayRead())
        return nullptr;
    return block().xref.get();
}

Acad::ErrorStatus BlockTableRecord::getBlockReferenceIds(AcDbObjectIdArray& ids, bool, bool)
{
    if (!mayRead())
        return Acad::eNotOpenForRead;
    for (InsertNode* pInsert : block().references)
        if (!pInsert->erased && !ids.append(AcDbObjectId(pInsert)))
            return Acad::eOutOfMemory;
    return Acad::eOk;
}

AcDbObjectIterator* BlockReference::attributeIterator() const
{
    if (!mayRead())
        return nullptr;
    return new AttributeIterator(static_cast<const InsertNode&>(node()));
}

void AttributeIterator::step()
{
    ++m_position;
    skipErased();
}

void AttributeIterator::skipErased()
{
    while (!done() && m_insert.attributes[m_position]->erased)
        ++m_position;
}

AcDbObjectId AttributeIterator::objectId() const
{
    return done() ? AcDbObjectId() : AcDbObjectId(m_insert.attributes[m_position]);
}

}  // namespace dxf
