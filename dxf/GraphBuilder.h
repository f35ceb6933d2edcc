#pragma once

// Builds a drawing's objects from the records of its file, in one walk. Files
// without handles, layouts, owners or whole sections get what is missing, in
// memory alone.

#include "dxf/ObjectGraph.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace dxf {

class GraphBuilder {
public:
    GraphBuilder(ObjectGraph& graph, DxfFile& file) : m_graph(graph), m_file(file) {}
    void build();

private:
    void readTables(const DxfRecord& section);
    void readBlocks(DxfRecord& section);
    BlockNode& addBlock(const std::string& sName, DxfRecord* pRecord);
    void readEntities(DxfRecord& section);
    void addLayouts();
    void rankOwners();
    void addRecord(BlockNode& owner, DxfRecord& record);
    void linkInserts();
    unsigned long long handleOf(const DxfRecord& record);
    BlockNode& spaceOf(const DxfRecord& record) const;

    ObjectGraph& m_graph;
    DxfFile& m_file;
    // What the BLOCK_RECORD table says: handle and layout of a name.
    struct TableEntry {
        unsigned long long handle = 0;
        bool layout = false;
    };
    std::unordered_map<std::string, TableEntry> m_table;
    std::unordered_map<unsigned long long, BlockNode*> m_owners;
    BlockNode* m_paperSpace = nullptr;
    InsertNode* m_lastInsert = nullptr;
    std::vector<std::pair<InsertNode*, std::string>> m_inserts;
};

}  // namespace dxf
