#pragma once

// Block table, its records, and references to blocks.

#include "dxf/Memory.h"
#include "dxf/Objects.h"

namespace dxf {

class BlockTable final : public ObjectFace<AcDbBlockTable> {
public:
    using ObjectFace::ObjectFace;

    bool has(const char* sName) const override;
    Acad::ErrorStatus getAt(const char* sName, AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                            bool bOpenErased) const override;
    Acad::ErrorStatus newIterator(AcDbBlockTableIterator*& pIterator, bool bAtBeginning,
                                  bool bSkipDeleted) const override;
};

class BlockTableIterator final : public AcDbBlockTableIterator {
public:
    BlockTableIterator(const ObjectGraph& graph, bool atBeginning, bool skipDeleted);

    bool done() const override;
    void step(bool bForward, bool bSkipDeleted) override;
    Acad::ErrorStatus getRecord(AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode, bool bOpenErased) const override;

private:
    void skip(bool forward, bool skipDeleted);

    const std::vector<BlockNode*>& m_blocks;
    // Past either end when the walk is done.
    std::ptrdiff_t m_position;
    HandedOut m_handedOut;
};

class BlockTableRecord final : public ObjectFace<AcDbBlockTableRecord> {
public:
    using ObjectFace::ObjectFace;

    bool isAnonymous() const override;
    bool isLayout() const override;
    bool isFromExternalReference() const override;
    AcDb::XrefStatus xrefStatus() const override;
    AcDbDatabase* xrefDatabase(bool bIncludeUnresolved) const override;
    Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool bDirectOnly, bool bForceValidity) override;

private:
    BlockNode& block() const { return static_cast<BlockNode&>(node()); }
};

class BlockReference final : public ObjectFace<AcDbBlockReference> {
public:
    using ObjectFace::ObjectFace;

    AcDbObjectIterator* attributeIterator() const override;
};

class AttributeIterator final : public AcDbObjectIterator {
public:
    explicit AttributeIterator(const InsertNode& insert) : m_insert(insert) { skipErased(); }

    bool done() const override { return m_position >= m_insert.attributes.size(); }
    void step() override;
    AcDbObjectId objectId() const override;

private:
    void skipErased();

    const InsertNode& m_insert;
    std::size_t m_position = 0;
    HandedOut m_handedOut;
};

}  // namespace dxf
