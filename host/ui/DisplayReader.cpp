// Reads what is shown of a drawing: lines, circles, arcs, polylines, texts, and the same
// within the blocks that are inserted.

#include "host/drawing/Database.h"
#include "host/ui/DisplayList.h"

#include <cmath>
#include <map>
#include <numbers>

namespace host {

namespace {

constexpr std::size_t kMostShapes = 20000;  // a plan to recognise, not to print
constexpr int kDeepestBlock = 4;

double number(const DxfRecord& record, int code, double otherwise = 0.0)
{
    return record.has(code) ? toDouble(record.value(code)) : otherwise;
}

PlanPoint point(const DxfRecord& record, int codeOfX)
{
    return {number(record, codeOfX), number(record, codeOfX + 10)};
}

// From a block's coordinates to the drawing's.
struct Placement {
    double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0;
    PlanPoint origin;

    PlanPoint apply(const PlanPoint& p) const
    {
        return {origin.x + xx * p.x + xy * p.y, origin.y + yx * p.x + yy * p.y};
    }
    // Where an insert puts a block with this base point.
    Placement of(const DxfRecord& insert, const PlanPoint& base) const
    {
        const double angle = number(insert, 50) * std::numbers::pi / 180;
        const double sx = number(insert, 41, 1.0);
        const double sy = number(insert, 42, 1.0);
        const double c = std::cos(angle);
        const double s = std::sin(angle);
        Placement inner;
        inner.xx = sx * (xx * c + xy * s);
        inner.xy = sy * (xy * c - xx * s);
        inner.yx = sx * (yx * c + yy * s);
        inner.yy = sy * (yy * c - yx * s);
        const PlanPoint at = apply(point(insert, 10));
        inner.origin = {at.x - inner.xx * base.x - inner.xy * base.y, at.y - inner.yx * base.x - inner.yy * base.y};
        return inner;
    }
};

}  // namespace

class DisplayReader {
public:
    DisplayReader(DisplayList& list, const DxfFile& file) : m_list(list), m_file(file)
    {
        const DxfRecord* record = file.section("BLOCKS");
        for (; record != nullptr && record->type() != "ENDSEC"; record = record->next())
            if (record->type() == "BLOCK")
                m_blocks.emplace(record->value(2), record);
    }

    void readFrom(const DxfRecord* first, const Placement& placement, int depth)
    {
        for (const DxfRecord* record = first; record != nullptr; record = record->next()) {
            if (record->type() == "ENDSEC" || record->type() == "ENDBLK" || isFull())
                return;
            if (toInt(record->value(67)) == 0)  // else it stands on a layout
                readEntity(*record, placement, depth);
        }
    }

private:
    bool isFull() const { return m_list.m_lines.size() + m_list.m_texts.size() > kMostShapes; }

    void readEntity(const DxfRecord& record, const Placement& placement, int depth)
    {
        const std::string_view type = record.type();
        if (type == "LINE")
            m_list.m_lines.push_back({placement.apply(point(record, 10)), placement.apply(point(record, 11))});
        else if (type == "CIRCLE" || type == "ARC")
            readArc(record, placement);
        else if (type == "LWPOLYLINE")
            readPolyline(record, placement);
        else if (type == "TEXT" || type == "MTEXT" || type == "ATTRIB")
            m_list.m_texts.push_back({placement.apply(point(record, 10)),
                                      number(record, 40) * std::hypot(placement.xy, placement.yy),
                                      m_file.encoding().decode(record.value(1))});
        else if (type == "INSERT")
            readInsert(record, placement, depth);
    }

    // A circle is one without angles.
    void readArc(const DxfRecord& record, const Placement& placement)
    {
        const PlanPoint centre = point(record, 10);
        const double radius = number(record, 40);
        const double start = number(record, 50);
        double end = number(record, 51, 360.0);
        if (end <= start)
            end += 360.0;
        std::vector<PlanPoint> line;
        for (int i = 0; i <= 36; ++i) {
            const double angle = (start + (end - start) * i / 36) * std::numbers::pi / 180;
            line.push_back(placement.apply({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)}));
        }
        m_list.m_lines.push_back(std::move(line));
    }

    void readPolyline(const DxfRecord& record, const Placement& placement)
    {
        std::vector<PlanPoint> line;
        TagReader tags = record.tags();
        double x = 0.0;
        for (DxfTag tag; nextTag(tags, tag);) {
            if (tag.code == 10)
                x = toDouble(tag.value);
            else if (tag.code == 20)
                line.push_back(placement.apply({x, toDouble(tag.value)}));
        }
        if ((toInt(record.value(70)) & 1) != 0 && !line.empty())
            line.push_back(line.front());
        m_list.m_lines.push_back(std::move(line));
    }

    void readInsert(const DxfRecord& insert, const Placement& placement, int depth)
    {
        const auto block = m_blocks.find(insert.value(2));
        if (block == m_blocks.end() || depth == kDeepestBlock)
            return;
        const std::size_t before = m_list.m_lines.size();
        readFrom(block->second->next(), placement.of(insert, point(*block->second, 10)), depth + 1);
        if (m_list.m_lines.size() == before)  // an xref, or nothing that is drawn here
            m_list.m_texts.push_back(
                {placement.apply(point(insert, 10)), 0.0, m_file.encoding().decode(insert.value(2))});
    }

    DisplayList& m_list;
    const DxfFile& m_file;
    std::map<std::string_view, const DxfRecord*> m_blocks;
};

void DisplayList::read(const Database& drawing)
{
    m_lines.clear();
    m_texts.clear();
    const DxfFile& file = drawing.file();
    if (const DxfRecord* const entities = file.section("ENTITIES"))
        DisplayReader(*this, file).readFrom(entities->next(), {}, 0);
}

}  // namespace host
