#include "dwg/Drawing.h"

#include "dwg/BinaryDrawing.h"
#include "dwg/Geometry.h"
#include "dwg/Header.h"

namespace dwg {

namespace {

constexpr unsigned kBlockTable = 0x30, kBlockRecord = 0x31, kLayer = 0x33;

constexpr unsigned kAnonymous = 1, kAttributes = 2, kXref = 4, kOverlay = 8, kDependent = 16;

// Some names come without the number that makes them one of their kind.
bool lacksNumber(std::string_view name)
{
    return name.size() > 1 && name.front() == '*' && (name.back() < '0' || name.back() > '9');
}

}  // namespace

Drawing::Drawing(const Sections& sections)
    : m_sections(sections),
      m_map(sections),
      m_room(sections.room),
      m_out(doubleBytePage(sections), 2 * sections.objects.size()),
      m_taken(m_map.size()),
      m_polyline(polylineClass(sections.classes))
{
    readBlockTable();
}

std::string Drawing::text()
{
    writeHeader(m_sections, m_out);
    writeBlocks();
    m_out.lines("0\nSECTION\n2\nENTITIES\n");
    writeContents(m_model, false);
    writeContents(m_paper, true);
    m_out.lines("0\nENDSEC\n");
    writeObjects(m_sections, m_map, m_out);
    m_out.lines("0\nEOF\n");
    return m_out.take();
}

std::string_view Drawing::blockName(std::uint64_t handle) const
{
    const auto found = m_byHandle.find(handle);
    return found != m_byHandle.end() ? std::string_view(found->second->name) : std::string_view();
}

std::string_view Drawing::layerName(std::uint64_t handle)
{
    const auto [entry, isNew] = m_layers.try_emplace(handle, "0");
    if (isNew)
        if (Object layer = m_map.open(m_map.find(handle)); layer.type() == kLayer) {
            layer.readPreamble();
            const std::string name = layer.text();
            if (!layer.failed())
                entry->second = name;
        }
    return entry->second;
}

void Drawing::readBlockTable()
{
    std::size_t index = 0;
    while (index < m_map.size() && m_map.typeAt(index) != kBlockTable)
        ++index;
    Object table = m_map.open(index);
    table.readPreamble();
    const std::uint32_t count = table.references.count(table.data.bl(), 8);
    std::vector<std::uint64_t> records;
    for (std::uint32_t i = 0; i < count; ++i)
        records.push_back(table.reference());
    m_table = table.handle();
    m_model = readBlock(table.reference());
    m_paper = readBlock(table.reference());
    if (table.failed())
        throw Unreadable("damaged: its block table");
    for (std::size_t place = 0; place < records.size(); ++place)
        if (Block* const pBlock = readBlock(records[place]); pBlock != nullptr && lacksNumber(pBlock->name))
            pBlock->name += std::to_string(place);
}

// Null for what is no record, or one that was read before.
Drawing::Block* Drawing::readBlock(std::uint64_t handle)
{
    const std::size_t index = m_map.find(handle);
    if (index == ObjectMap::kNone || m_taken[index])
        return nullptr;
    m_taken[index] = true;
    Block block(m_map.open(index));
    Object& record = block.record;
    Bits& data = record.data;
    const int release = record.release();
    record.readPreamble();
    block.name = record.text();
    if (release <= 2004)
        data.b();
    const bool ofXref = data.bs() == 256;
    const bool dependent = release <= 2004 ? data.b() : ofXref;
    const auto flag = [&](unsigned bit) { block.flags |= data.b() ? bit : 0U; };
    block.flags = dependent ? kDependent : 0U;
    flag(kAnonymous);
    flag(kAttributes);
    flag(kXref);
    flag(kOverlay);
    block.unloaded = release >= 2000 && data.b();
    const bool own = (block.flags & (kXref | kOverlay)) == 0;
    if (own && release >= 2004)
        block.count = data.bl();
    block.base = record.point3();
    block.path = record.text();
    record.reference();  // none
    record.reference();  // BLOCK
    block.entities = record.references;
    if (record.failed() || record.type() != kBlockRecord)
        return nullptr;
    block.hasContents = own;
    m_blocks.push_back(std::move(block));
    m_byHandle[handle] = &m_blocks.back();
    return &m_blocks.back();
}

void Drawing::writeBlocks()
{
    m_out.lines("0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nBLOCK_RECORD\n");
    m_out.handle(5, m_table);
    for (const Block& block : m_blocks) {
        m_out.name(0, "BLOCK_RECORD");
        m_out.handle(5, block.record.handle());
        m_out.text(2, block.name);
    }
    m_out.lines("0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n");
    for (const Block& block : m_blocks) {
        m_out.name(0, "BLOCK");
        m_out.text(2, block.name);
        m_out.integer(70, block.flags);
        if (block.unloaded)
            m_out.integer(71, 1);
        m_out.point(10, block.base);
        m_out.text(1, block.path);
        if (&block != m_model && &block != m_paper)
            writeContents(&block, false);
        m_out.lines("0\nENDBLK\n");
    }
    m_out.lines("0\nENDSEC\n");
}

void Drawing::writeContents(const Block* pBlock, bool paper)
{
    if (pBlock == nullptr || !pBlock->hasContents)
        return;
    Object from = pBlock->record;
    from.references = pBlock->entities;
    writeChain(from, pBlock->count, paper, false);
}

// What the references of an object name, in their order.
void Drawing::writeChain(Object& from, std::uint32_t count, bool paper, bool nested)
{
    if (m_sections.release >= 2004) {
        for (; count != 0 && !from.failed(); --count)
            writeEntity(from.reference(), paper, nested);
        return;
    }
    std::uint64_t handle = from.reference();
    const std::uint64_t last = from.reference();
    for (std::uint64_t next = 0; handle != 0; handle = next) {
        next = writeEntity(handle, paper, nested);
        if (handle == last)
            break;
    }
}

// Gives the next one of a chain; 0 where it cannot be known. Each is written once, so that
// damaged chains end.
std::uint64_t Drawing::writeEntity(std::uint64_t handle, bool paper, bool nested)
{
    const std::size_t index = m_map.find(handle);
    if (index == ObjectMap::kNone || m_taken[index])
        return 0;
    m_taken[index] = true;
    const unsigned type = m_map.typeAt(index);
    const EntityKind* const pKind = entityKind(type != 0 && type == m_polyline ? kPolyline : type);
    if (pKind == nullptr && m_sections.release >= 2004)
        return 0;
    Entity entity(m_map.open(index), *this);
    entity.readEntityPreamble();
    if (pKind == nullptr || entity.failed())
        return entity.failed() ? 0 : entity.next;
    const std::size_t before = m_out.size();
    m_out.name(0, pKind->name);
    m_out.handle(5, handle);
    m_out.text(8, layerName(entity.layer));
    if (entity.invisible)
        m_out.integer(60, 1);
    if (paper)
        m_out.integer(67, 1);
    pKind->writeFields(entity, m_out);
    m_room.take(m_out.size() - before);
    if (entity.failed()) {
        m_out.cut(before);
    } else if (entity.owns && !nested) {
        writeChain(entity, entity.owned, paper, true);
        m_out.name(0, "SEQEND");
    }
    return entity.next;
}

std::string toText(std::string_view bytes)
{
    Sections sections;
    readSections(bytes, sections);
    return Drawing(sections).text();
}

}  // namespace dwg
