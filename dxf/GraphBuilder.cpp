#include "dxf/GraphBuilder.h"

#include <algorithm>

namespace dxf {

namespace {

bool isEnd(const DxfRecord& record) { return record.type() == "ENDSEC" || record.type() == "EOF"; }

// R12 writes the layouts' names with a dollar sign.
std::string layoutName(const std::string& sName)
{
    if (sameName(sName, "$MODEL_SPACE"))
        return "*Model_Space";
    if (sameName(sName, "$PAPER_SPACE"))
        return "*Paper_Space";
    return sName;
}

bool isModelSpace(std::string_view name) { return sameName(name, "*Model_Space"); }

bool isPaperSpace(std::string_view name) { return name.size() >= 12 && sameName(name.substr(0, 12), "*Paper_Space"); }

}  // namespace

void GraphBuilder::build()
{
    if (const DxfRecord* pTables = m_file.section("TABLES"))
        readTables(*pTables);
    if (m_graph.m_blockTable.handle == 0)
        m_graph.m_blockTable.handle = m_graph.newHandle();
    if (DxfRecord* pBlocks = m_file.section("BLOCKS"))
        readBlocks(*pBlocks);
    addLayouts();
    // Damaged files have more than one of these.
    for (DxfRecord* p = m_file.first(); p != nullptr; p = p->next())
        if (p->type() == "SECTION" && trimmed(p->value(2)) == "ENTITIES")
            readEntities(*p);
    rankOwners();
    linkInserts();
}

void GraphBuilder::readTables(const DxfRecord& section)
{
    bool inTable = false;
    for (const DxfRecord* p = section.next(); p != nullptr && !isEnd(*p); p = p->next()) {
        if (p->type() == "TABLE") {
            inTable = trimmed(p->value(2)) == "BLOCK_RECORD";
            if (inTable)
                m_graph.m_blockTable.handle = toHandle(p->value(5));
        } else if (inTable && p->type() == "BLOCK_RECORD") {
            const std::string sName = m_file.encoding().decode(trimmed(p->value(2)));
            m_table.try_emplace(foldedName(sName), TableEntry{toHandle(p->value(5)), toHandle(p->value(340)) != 0});
        }
    }
}

void GraphBuilder::readBlocks(DxfRecord& section)
{
    BlockNode* pBlock = nullptr;
    for (DxfRecord* p = section.next(); p != nullptr && !isEnd(*p); p = p->next()) {
        if (p->type() == "ENDBLK") {
            pBlock = nullptr;
        } else if (p->type() == "BLOCK") {
            const std::string sName = layoutName(m_file.encoding().decode(trimmed(p->value(2))));
            pBlock = &addBlock(sName, p);
            pBlock->flags = toInt(p->value(70));
            pBlock->unloaded = toInt(p->value(71)) == 1;
            if (pBlock->isXref())
                pBlock->xrefPath = m_file.encoding().decode(p->value(1));
            m_lastInsert = nullptr;
        } else if (pBlock != nullptr) {
            addRecord(*pBlock, *p);
        }
    }
}

BlockNode& GraphBuilder::addBlock(const std::string& sName, DxfRecord* pRecord)
{
    const TableEntry entry = m_table[foldedName(sName)];
    BlockNode& block = m_graph.addBlock(sName, pRecord, entry.handle != 0 ? entry.handle : m_graph.newHandle());
    block.layout = entry.layout || isModelSpace(sName) || isPaperSpace(sName);
    m_owners.try_emplace(block.handle, &block);
    return block;
}

void GraphBuilder::readEntities(DxfRecord& section)
{
    m_lastInsert = nullptr;
    for (DxfRecord* p = section.next(); p != nullptr && !isEnd(*p); p = p->next())
        addRecord(spaceOf(*p), *p);
}

void GraphBuilder::addLayouts()
{
    for (const char* sName : {"*Model_Space", "*Paper_Space"}) {
        BlockNode* pNode = m_graph.block(sName);
        if (pNode == nullptr)
            pNode = &addBlock(sName, nullptr);
        (isModelSpace(sName) ? m_graph.m_modelSpace : m_paperSpace) = pNode;
    }
}

void GraphBuilder::rankOwners()
{
    int rank = 1;
    for (const bool paper : {true, false})
        for (BlockNode* pBlock : m_graph.m_blocks)
            if (isPaperSpace(pBlock->name) == paper && pBlock != m_graph.m_modelSpace)
                pBlock->rank = rank++;
}

void GraphBuilder::addRecord(BlockNode& owner, DxfRecord& record)
{
    const std::string_view type = record.type();
    if (type == "SEQEND") {
        m_lastInsert = nullptr;
    } else if (type == "ATTRIB") {
        if (m_lastInsert != nullptr)
            m_graph.addAttribute(*m_lastInsert, record, handleOf(record));
    } else if (type == "INSERT") {
        m_lastInsert = &m_graph.addInsert(owner, nullptr, record, handleOf(record));
        m_inserts.emplace_back(m_lastInsert, layoutName(m_file.encoding().decode(trimmed(record.value(2)))));
    } else if (type != "VERTEX") {
        m_lastInsert = nullptr;
        m_graph.addEntity(owner, record, handleOf(record));
    }
}

void GraphBuilder::linkInserts()
{
    for (const auto& [pInsert, sName] : m_inserts)
        if (BlockNode* pBlock = m_graph.block(sName)) {
            pInsert->block = pBlock;
            m_graph.addReference(*pInsert);
        }
}

unsigned long long GraphBuilder::handleOf(const DxfRecord& record)
{
    const unsigned long long handle = toHandle(record.value(5));
    return handle != 0 ? handle : m_graph.newHandle();
}

BlockNode& GraphBuilder::spaceOf(const DxfRecord& record) const
{
    const auto owner = m_owners.find(toHandle(record.value(330)));
    if (owner != m_owners.end() && owner->second->layout)
        return *owner->second;
    return toInt(record.value(67)) == 1 ? *m_paperSpace : *m_graph.m_modelSpace;
}

}  // namespace dxf
