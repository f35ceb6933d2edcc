#pragma once

// Block table, its records, and references to blocks.

#include "dxf/Memory.h"
#include "dxf/Objects.h"

namespace dxf {

class BlockTableIterator final : public AcDbBlockTableIterator {
public:
    BlockTableIterator(const ObjectGraph& graph, bool atBeginning, bool skipDeleted)
        : m_blocks(graph.blocks()), m_position(atBeginning ? 0 : std::ssize(graph.blocks()) - 1)
    {
        skip(atBeginning, skipDeleted);
    }

    bool done() const override { return m_position < 0 || m_position >= std::ssize(m_blocks); }
    void step(bool bForward, bool bSkipDeleted) override
    {
        m_position += bForward ? 1 : -1;
        skip(bForward, bSkipDeleted);
    }
    Acad::ErrorStatus getRecord(AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode, bool bOpenErased) const override
    {
        pRecord = nullptr;
        return done() ? Acad::eInvalidIndex : openAs(pRecord, current(), mode, bOpenErased);
    }

private:
    BlockNode& current() const { return *m_blocks[static_cast<std::size_t>(m_position)]; }
    void skip(bool forward, bool skipDeleted)
    {
        while (skipDeleted && !done() && current().erased)
            m_position += forward ? 1 : -1;
    }

    const std::vector<BlockNode*>& m_blocks;
    // Past either end when the walk is done.
    std::ptrdiff_t m_position;
    HandedOut m_handedOut;
};

class BlockTable final : public ObjectFace<AcDbBlockTable> {
public:
    using ObjectFace::ObjectFace;

    bool has(const char* sName) const override
    {
        return mayRead() && sName != nullptr && graph().block(sName) != nullptr;
    }
    Acad::ErrorStatus getAt(const char* sName, AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                            bool bOpenErased) const override
    {
        pRecord = nullptr;
        if (sName == nullptr)
            return Acad::eInvalidInput;
        if (!mayRead())
            return Acad::eNotOpenForRead;
        BlockNode* const pBlock = graph().block(sName);
        return pBlock == nullptr ? Acad::eKeyNotFound : openAs(pRecord, *pBlock, mode, bOpenErased);
    }
    Acad::ErrorStatus newIterator(AcDbBlockTableIterator*& pIterator, bool bAtBeginning,
                                  bool bSkipDeleted) const override
    {
        pIterator = mayRead() ? new BlockTableIterator(graph(), bAtBeginning, bSkipDeleted) : nullptr;
        return pIterator != nullptr ? Acad::eOk : Acad::eNotOpenForRead;
    }

private:
    ObjectGraph& graph() const { return node().database->graph(); }
};

class BlockTableRecord final : public ObjectFace<AcDbBlockTableRecord> {
public:
    using ObjectFace::ObjectFace;

    bool isAnonymous() const override { return mayRead() && (block().flags & 1) != 0; }
    bool isLayout() const override { return mayRead() && block().layout; }
    bool isFromExternalReference() const override { return mayRead() && block().isXref(); }
    AcDb::XrefStatus xrefStatus() const override
    {
        if (!mayRead() || !block().isXref())
            return AcDb::kXrfNotAnXref;
        if (block().unloaded)
            return AcDb::kXrfUnloaded;
        return block().isReferenced() ? block().status : AcDb::kXrfUnreferenced;
    }
    // What is not resolved has no database here, so there is none to include.
    AcDbDatabase* xrefDatabase(bool) const override { return mayRead() ? block().xref.get() : nullptr; }
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool, bool) override
    {
        if (!mayRead())
            return Acad::eNotOpenForRead;
        for (InsertNode* pInsert : block().references)
            if (!pInsert->erased && !ids.append(AcDbObjectId(pInsert)))
                return Acad::eOutOfMemory;
        return Acad::eOk;
    }

private:
    BlockNode& block() const { return static_cast<BlockNode&>(node()); }
};

class AttributeIterator final : public AcDbObjectIterator {
public:
    explicit AttributeIterator(const InsertNode& insert) : m_insert(insert) { skipErased(); }

    bool done() const override { return m_position >= m_insert.attributes.size(); }
    void step() override
    {
        ++m_position;
        skipErased();
    }
    AcDbObjectId objectId() const override
    {
        return done() ? AcDbObjectId() : AcDbObjectId(m_insert.attributes[m_position]);
    }

private:
    void skipErased()
    {
        while (!done() && m_insert.attributes[m_position]->erased)
            ++m_position;
    }

    const InsertNode& m_insert;
    std::size_t m_position = 0;
    HandedOut m_handedOut;
};

class BlockReference final : public ObjectFace<AcDbBlockReference> {
public:
    using ObjectFace::ObjectFace;

    AcDbObjectIterator* attributeIterator() const override
    {
        return mayRead() ? new AttributeIterator(static_cast<const InsertNode&>(node())) : nullptr;
    }
};

}  // namespace dxf
