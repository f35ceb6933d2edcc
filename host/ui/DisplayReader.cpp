// Reads what is shown of a drawing: lines and curves, outlines, texts, and the same within
// the blocks that are inserted.

#include "host/drawing/Database.h"
#include "host/ui/DisplayList.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

namespace host {

namespace {

constexpr std::size_t kMostShapes = 20000;  // a plan to recognise, not to print
constexpr std::size_t kMostWork = 500000;   // records read and points made
constexpr int kDeepestBlock = 4;
constexpr double kFarthest = 1e20;

double number(const DxfRecord& record, int code, double otherwise = 0.0)
{
    return record.has(code) ? toDouble(record.value(code)) : otherwise;
}

PlanPoint point(const DxfRecord& record, int codeOfX)
{
    return {number(record, codeOfX), number(record, codeOfX + 10)};
}

double radians(double degrees) { return degrees * std::numbers::pi / 180; }

// What a damaged drawing says may be infinite, or no number.
bool isPlace(const PlanPoint& p) { return std::abs(p.x) < kFarthest && std::abs(p.y) < kFarthest; }

bool isShown(const DxfRecord& record)
{
    const bool onLayout = toInt(record.value(67)) != 0;
    const bool hidden = record.type() == "ATTRIB" && (toInt(record.value(70)) & 1) != 0;
    return !onLayout && !hidden && toInt(record.value(60)) == 0;
}

// Whether the object's coordinates have their own axes: seen from below, x runs the other way.
bool isFromBelow(const DxfRecord& record)
{
    constexpr std::string_view kOwnAxes[] = {"CIRCLE", "ARC",    "LWPOLYLINE", "POLYLINE", "TEXT",
                                             "ATTRIB", "INSERT", "SOLID",      "TRACE"};
    return std::ranges::count(kOwnAxes, record.type()) != 0 && number(record, 230) < 0;
}

struct Vertex {
    PlanPoint at;
    double bulge = 0.0;  // of the way to the next: the tangent of a quarter of its angle
};

// From a block's coordinates to the drawing's.
struct Placement {
    double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0;
    PlanPoint origin;

    PlanPoint apply(const PlanPoint& p) const
    {
        return {origin.x + xx * p.x + xy * p.y, origin.y + yx * p.x + yy * p.y};
    }
    Placement fromBelow() const { return {-xx, xy, -yx, yy, origin}; }
    // Where an insert puts a block with this base point.
    Placement of(const DxfRecord& insert, const PlanPoint& base) const
    {
        const double angle = radians(number(insert, 50));
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
            ++m_work;
            if (isShown(*record))
                readEntity(*record, isFromBelow(*record) ? placement.fromBelow() : placement, depth);
        }
    }

private:
    std::size_t shapes() const { return m_list.m_lines.size() + m_list.m_rays.size() + m_list.m_texts.size(); }
    bool isFull() const { return shapes() > kMostShapes || m_work > kMostWork; }

    void readEntity(const DxfRecord& record, const Placement& placement, int depth)
    {
        const std::string_view type = record.type();
        if (type == "LINE")
            addLine({point(record, 10), point(record, 11)}, placement);
        else if (type == "POINT")
            addLine({point(record, 10)}, placement);
        else if (type == "SOLID" || type == "TRACE")
            addLine({point(record, 10), point(record, 11), point(record, 13), point(record, 12), point(record, 10)},
                    placement);
        else if (type == "CIRCLE" || type == "ARC")
            addCurve(point(record, 10), {number(record, 40), 0.0}, 1.0, radians(number(record, 50)),
                     radians(number(record, 51, 360.0)), placement);
        else if (type == "ELLIPSE")
            addCurve(point(record, 10), point(record, 11),
                     std::copysign(number(record, 40, 1.0), number(record, 230, 1.0)), number(record, 41),
                     number(record, 42, 2 * std::numbers::pi), placement);
        else if (type == "LWPOLYLINE")
            readPolyline(record, placement);
        else if (type == "POLYLINE")
            readOldPolyline(record, placement);
        else if (type == "RAY" || type == "XLINE")
            readRay(record, placement);
        else if (type == "TEXT" || type == "MTEXT" || type == "ATTRIB")
            addText(placement.apply(point(record, 10)), number(record, 40) * std::hypot(placement.xy, placement.yy),
                    textOf(record));
        else if (type == "INSERT" || type == "DIMENSION")
            readBlock(record, placement, depth);
    }

    void addLine(std::vector<PlanPoint> line, const Placement& placement)
    {
        m_work += line.size();
        for (PlanPoint& p : line)
            p = placement.apply(p);
        if (std::ranges::all_of(line, isPlace))
            m_list.m_lines.push_back(std::move(line));
    }

    void addText(const PlanPoint& at, double height, std::string text)
    {
        if (isPlace(at) && isPlace({height, 0.0}))
            m_list.m_texts.push_back({at, height, std::move(text)});
    }

    // A long text begins in tags of their own.
    std::string textOf(const DxfRecord& record) const
    {
        std::string text;
        TagReader tags = record.tags();
        for (DxfTag tag; nextTag(tags, tag) && tag.code < 1000;)
            if (tag.code == 1 || (tag.code == 3 && record.type() == "MTEXT"))
                text += tag.value;
        return m_file.encoding().decode(text);
    }

    // An ellipse's arc; the ratio is that of its axes.
    static void addArc(std::vector<PlanPoint>& line, const PlanPoint& centre, const PlanPoint& axis, double ratio,
                       double start, double end)
    {
        for (int i = 0; i <= 36; ++i) {
            const double c = std::cos(start + (end - start) * i / 36);
            const double s = std::sin(start + (end - start) * i / 36) * ratio;
            line.push_back({centre.x + axis.x * c - axis.y * s, centre.y + axis.y * c + axis.x * s});
        }
    }

    void addCurve(const PlanPoint& centre, const PlanPoint& axis, double ratio, double start, double end,
                  const Placement& placement)
    {
        std::vector<PlanPoint> line;
        addArc(line, centre, axis, ratio, start, end <= start ? end + 2 * std::numbers::pi : end);
        addLine(std::move(line), placement);
    }

    void addPolyline(std::vector<Vertex> vertices, bool closed, const Placement& placement)
    {
        if (closed && !vertices.empty())
            vertices.push_back(vertices.front());
        std::vector<PlanPoint> line;
        for (std::size_t i = 0; i < vertices.size(); ++i) {
            const auto& [from, bulge] = vertices[i];
            line.push_back(from);
            if (bulge == 0.0 || i + 1 == vertices.size())
                continue;
            const PlanPoint to = vertices[i + 1].at;
            const double aside = (1 - bulge * bulge) / (4 * bulge);
            const PlanPoint centre{(from.x + to.x) / 2 - aside * (to.y - from.y),
                                   (from.y + to.y) / 2 + aside * (to.x - from.x)};
            addArc(line, centre, {from.x - centre.x, from.y - centre.y}, 1.0, 0.0, 4 * std::atan(bulge));
        }
        addLine(std::move(line), placement);
    }

    void readPolyline(const DxfRecord& record, const Placement& placement)
    {
        std::vector<Vertex> vertices;
        TagReader tags = record.tags();
        for (DxfTag tag; nextTag(tags, tag);) {
            if (tag.code == 10)
                vertices.push_back({{toDouble(tag.value), 0.0}});
            else if (tag.code == 20 && !vertices.empty())
                vertices.back().at.y = toDouble(tag.value);
            else if (tag.code == 42 && !vertices.empty())
                vertices.back().bulge = toDouble(tag.value);
        }
        addPolyline(std::move(vertices), (toInt(record.value(70)) & 1) != 0, placement);
    }

    void readOldPolyline(const DxfRecord& record, const Placement& placement)
    {
        const int flags = toInt(record.value(70));
        if ((flags & (16 | 64)) != 0)  // a mesh
            return;
        std::vector<Vertex> vertices;
        for (const DxfRecord* p = record.next(); p != nullptr && p->type() == "VERTEX"; p = p->next())
            if ((toInt(p->value(70)) & 16) == 0)  // else it only controls a curve
                vertices.push_back({point(*p, 10), number(*p, 42)});
        addPolyline(std::move(vertices), (flags & 1) != 0, placement);
    }

    void readRay(const DxfRecord& record, const Placement& placement)
    {
        const PlanPoint start = point(record, 10);
        const PlanPoint way = point(record, 11);
        const PlanPoint from = placement.apply(start);
        for (const double sign : {1.0, -1.0}) {
            const PlanPoint to = placement.apply({start.x + sign * way.x, start.y + sign * way.y});
            if (isPlace(from) && isPlace(to) && (sign > 0 || record.type() == "XLINE"))
                m_list.m_rays.emplace_back(from, to);
        }
    }

    // What an insert or a dimension refers to, whose block stands in the drawing's coordinates.
    void readBlock(const DxfRecord& record, const Placement& placement, int depth)
    {
        const auto block = m_blocks.find(record.value(2));
        if (block == m_blocks.end() || depth == kDeepestBlock)
            return;
        const bool inserted = record.type() == "INSERT";
        const std::size_t before = shapes();
        readFrom(block->second->next(), inserted ? placement.of(record, point(*block->second, 10)) : placement,
                 depth + 1);
        if (inserted && shapes() == before)  // an xref, or nothing that is drawn here
            addText(placement.apply(point(record, 10)), 0.0, m_file.encoding().decode(record.value(2)));
    }

    DisplayList& m_list;
    const DxfFile& m_file;
    std::map<std::string_view, const DxfRecord*> m_blocks;
    std::size_t m_work = 0;
};

void DisplayList::read(const Database& drawing)
{
    m_lines.clear();
    m_rays.clear();
    m_texts.clear();
    const DxfFile& file = drawing.file();
    if (const DxfRecord* const entities = file.section("ENTITIES"))
        DisplayReader(*this, file).readFrom(entities->next(), {}, 0);
}

}  // namespace host
