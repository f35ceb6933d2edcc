#include "dxf/ObjectGraph.h"

#include "dxf/Drawing.h"
#include "dxf/GraphBuilder.h"
#include "dxf/Objects.h"

#include <algorithm>

AcDbStub::~AcDbStub()
{
    if (readers > 0 || writer)
        dxf::Drawing::countMisuse();
}

AcDbObject& AcDbStub::object()
{
    if (m_object == nullptr)
        m_object = dxf::newObject(*this);
    return *m_object;
}

namespace dxf {

namespace {

bool comesBefore(const InsertNode* a, const InsertNode* b)
{
    return static_cast<const BlockNode*>(a->owner)->rank < static_cast<const BlockNode*>(b->owner)->rank;
}

}  // namespace

BlockNode::~BlockNode() = default;

bool BlockNode::isReferenced() const
{
    return std::any_of(references.begin(), references.end(), [](const InsertNode* p) { return !p->erased; });
}

ObjectGraph::ObjectGraph(Drawing& database, DxfFile& file) : m_database(database), m_file(file)
{
    prepare(m_blockTable, NodeKind::BlockTable, nullptr, nullptr, 0);
    GraphBuilder(*this, file).build();
}

unsigned long long ObjectGraph::handleSeed() const
{
    const std::vector<DxfTag> values = m_file.headerEntry("$HANDSEED").values();
    return values.empty() ? 0 : toHandle(values.front().value);
}

unsigned long long ObjectGraph::nextHandle() const
{
    if (m_nextHandle == 0)
        m_nextHandle = std::max(handleSeed(), m_file.highestHandle() + 1);
    return m_nextHandle;
}

BlockNode* ObjectGraph::block(std::string_view name) const
{
    const auto found = m_blocksByName.find(foldedName(name));
    return found == m_blocksByName.end() || found->second->erased ? nullptr : found->second;
}

AcDbStub* ObjectGraph::find(unsigned long long handle) const
{
    if (!std::exchange(m_isSorted, true))
        std::sort(m_byHandle.begin(), m_byHandle.end());
    const auto found = std::lower_bound(m_byHandle.begin(), m_byHandle.end(), ByHandle{handle, 0, nullptr});
    return found == m_byHandle.end() || found->handle != handle ? nullptr : found->node;
}

BlockNode& ObjectGraph::addBlock(const std::string& sName, DxfRecord* pRecord, unsigned long long handle)
{
    BlockNode& node = m_blockNodes.emplace_back();
    prepare(node, NodeKind::BlockRecord, &m_blockTable, pRecord, handle);
    node.name = sName;
    m_blocks.push_back(&node);
    // An erased block gives its name free; of two with one name, the first counts.
    BlockNode*& pEntry = m_blocksByName[foldedName(sName)];
    if (pEntry == nullptr || pEntry->erased)
        pEntry = &node;
    return node;
}

AcDbStub& ObjectGraph::addEntity(BlockNode& owner, DxfRecord& record, unsigned long long handle)
{
    AcDbStub& node = m_entityNodes.emplace_back();
    const bool text = record.type() == "TEXT" || record.type() == "ATTDEF";
    prepare(node, text ? NodeKind::Text : NodeKind::Entity, &owner, &record, handle);
    owner.entities.push_back(&node);
    return node;
}

InsertNode& ObjectGraph::addInsert(BlockNode& owner, BlockNode* pBlock, DxfRecord& record, unsigned long long handle)
{
    InsertNode& node = m_insertNodes.emplace_back();
    prepare(node, NodeKind::BlockReference, &owner, &record, handle);
    node.block = pBlock;
    owner.entities.push_back(&node);
    if (pBlock != nullptr)
        addReference(node);
    return node;
}

AcDbStub& ObjectGraph::addAttribute(InsertNode& owner, DxfRecord& record, unsigned long long handle)
{
    AcDbStub& node = m_entityNodes.emplace_back();
    prepare(node, NodeKind::Attribute, &owner, &record, handle);
    owner.attributes.push_back(&node);
    return node;
}

AcDbStub& ObjectGraph::prepare(AcDbStub& node, NodeKind kind, AcDbStub* pOwner, DxfRecord* pRecord,
                               unsigned long long handle)
{
    node.database = &m_database;
    node.kind = kind;
    node.owner = pOwner;
    node.record = pRecord;
    node.handle = handle;
    m_isSorted = m_isSorted && (m_byHandle.empty() || m_byHandle.back().handle < handle);
    m_byHandle.push_back({handle, m_byHandle.size(), &node});
    return node;
}

void ObjectGraph::addReference(InsertNode& insert)
{
    auto& references = insert.block->references;
    references.insert(std::upper_bound(references.begin(), references.end(), &insert, comesBefore), &insert);
}

}  // namespace dxf
