#pragma once

// A drawing's objects, written as text: the blocks of its block table, and what is in each.

#include "dwg/Entities.h"
#include "dwg/ObjectMap.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

namespace dwg {

class Drawing {
public:
    // Throws Unreadable.
    explicit Drawing(const Sections& sections);
    std::string text();

    // Empty for none.
    std::string_view blockName(std::uint64_t handle) const;
    std::string_view layerName(std::uint64_t handle);

private:
    struct Block {
        explicit Block(const Object& its) : record(its) {}

        Object record;
        std::string name, path;
        unsigned flags = 0;
        bool unloaded = false;
        Point base;
        // What is in it: so many references in the record, or a first and a last one.
        bool hasContents = false;
        Bits entities;
        std::uint32_t count = 0;
    };

    void readBlockTable();
    Block* readBlock(std::uint64_t handle);
    void writeBlocks();
    void writeContents(const Block* pBlock, bool paper);
    void writeChain(Object& from, std::uint32_t count, bool paper, bool nested);
    std::uint64_t writeEntity(std::uint64_t handle, bool paper, bool nested);

    const Sections& m_sections;
    ObjectMap m_map;
    Room m_room;  // for what is written
    DxfWriter m_out;
    std::vector<bool> m_taken;  // entities, by their index
    unsigned m_polyline;        // the type that the drawing itself gives to LWPOLYLINE
    std::uint64_t m_table = 0;
    // Model space and the active layout first, where they can be read.
    std::deque<Block> m_blocks;
    const Block* m_model = nullptr;
    const Block* m_paper = nullptr;
    std::unordered_map<std::uint64_t, const Block*> m_byHandle;
    std::unordered_map<std::uint64_t, std::string> m_layers;
};

}  // namespace dwg
