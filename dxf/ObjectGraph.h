#pragma once

// The objects of a drawing, built over the records of its file: block table,
// block records, their entities, references and attributes. A node is what an
// object id points to; it lives as long as its database's contents.

#include "objectarx/dbmain.h"

#include "dxf/DxfFile.h"

#include <compare>
#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace dxf {

class Drawing;
class ObjectGraph;

enum class NodeKind : unsigned char { BlockTable, BlockRecord, BlockReference, Attribute, Text, Entity };

}  // namespace dxf

class AcDbStub {
public:
    AcDbStub() = default;
    AcDbStub(const AcDbStub&) = delete;
    AcDbStub& operator=(const AcDbStub&) = delete;
    ~AcDbStub();

    dxf::Drawing* database = nullptr;
    // Null for objects that the file has no record of.
    dxf::DxfRecord* record = nullptr;
    AcDbStub* owner = nullptr;
    unsigned long long handle = 0;
    dxf::NodeKind kind = dxf::NodeKind::Entity;
    bool erased = false;

    // How it is open now.
    bool writer = false;
    bool modified = false;
    int readers = 0;
    // While reactors are shown the object, they may read it.
    int notifying = 0;

    bool isEntity() const { return kind >= dxf::NodeKind::BlockReference; }
    bool isReadable() const { return readers > 0 || writer || notifying > 0; }
    // The API object of this node, made when first asked for.
    AcDbObject& object();

private:
    std::unique_ptr<AcDbObject> m_object;
};

namespace dxf {

struct InsertNode;

struct BlockNode : AcDbStub {
    ~BlockNode();

    std::string name;
    int flags = 0;
    bool layout = false;
    // Position among the owners of references: model space, paper spaces, blocks.
    int rank = 0;
    // The path of an xref as the file has it, and what became of it.
    std::string xrefPath;
    bool unloaded = false;
    AcDb::XrefStatus status = AcDb::kXrfNotAnXref;
    std::unique_ptr<Drawing> xref;
    std::vector<AcDbStub*> entities;
    std::vector<InsertNode*> references;

    bool isXref() const { return (flags & 4) != 0; }
    bool isReferenced() const;
};

struct InsertNode : AcDbStub {
    BlockNode* block = nullptr;
    std::vector<AcDbStub*> attributes;
};

class ObjectGraph {
public:
    ObjectGraph(Drawing& database, DxfFile& file);
    ObjectGraph(const ObjectGraph&) = delete;
    ObjectGraph& operator=(const ObjectGraph&) = delete;

    AcDbStub& blockTable() { return m_blockTable; }
    // In file order, erased ones included.
    const std::vector<BlockNode*>& blocks() const { return m_blocks; }
    // By name, without case; null when there is none or it is erased.
    BlockNode* block(std::string_view name) const;
    BlockNode& modelSpace() const { return *m_modelSpace; }
    AcDbStub* find(unsigned long long handle) const;
    unsigned long long newHandle() { return std::exchange(m_nextHandle, nextHandle() + 1); }
    // Above all that the file ever had; it is gone through when one is asked for first.
    unsigned long long nextHandle() const;
    bool handlesAreWritten() const { return handleSeed() != 0; }

    // Nodes for records that are linked already; `owner` takes an entity in.
    BlockNode& addBlock(const std::string& sName, DxfRecord* pRecord, unsigned long long handle);
    AcDbStub& addEntity(BlockNode& owner, DxfRecord& record, unsigned long long handle);
    InsertNode& addInsert(BlockNode& owner, BlockNode* pBlock, DxfRecord& record, unsigned long long handle);
    AcDbStub& addAttribute(InsertNode& owner, DxfRecord& record, unsigned long long handle);

private:
    // Of one handle the first that came counts.
    struct ByHandle {
        unsigned long long handle;
        std::size_t place;
        AcDbStub* node;

        auto operator<=>(const ByHandle&) const = default;
    };

    friend class GraphBuilder;

    AcDbStub& prepare(AcDbStub& node, NodeKind kind, AcDbStub* pOwner, DxfRecord* pRecord, unsigned long long handle);
    // The next handle by the file's header; 0 without one.
    unsigned long long handleSeed() const;
    // Keeps references in drawing order.
    void addReference(InsertNode& insert);

    Drawing& m_database;
    const DxfFile& m_file;
    AcDbStub m_blockTable;
    std::deque<BlockNode> m_blockNodes;
    std::deque<InsertNode> m_insertNodes;
    std::deque<AcDbStub> m_entityNodes;
    std::vector<BlockNode*> m_blocks;
    std::unordered_map<std::string, BlockNode*> m_blocksByName;
    BlockNode* m_modelSpace = nullptr;
    mutable unsigned long long m_nextHandle = 0;
    // In the order of their handles once one was asked for; of two with one handle, the first counts.
    mutable std::vector<ByHandle> m_byHandle;
    mutable bool m_isSorted = true;
};

}  // namespace dxf
