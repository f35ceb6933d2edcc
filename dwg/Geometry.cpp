#include "dwg/Geometry.h"

#include "dwg/Drawing.h"

#include <vector>

namespace dwg {

namespace {

constexpr std::uint32_t kMostPoints = 1 << 17;

void writeNormal(const Point& normal, DxfWriter& out)
{
    if (normal.x != 0.0 || normal.y != 0.0 || normal.z != 1.0)
        out.point(210, normal);
}

void writeLine(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    Point from, to;
    if (entity.release() < 2000) {
        from = entity.point3();
        to = entity.point3();
    } else {
        const bool flat = data.b();
        from.x = data.rd();
        to.x = data.dd(from.x);
        from.y = data.rd();
        to.y = data.dd(from.y);
        from.z = flat ? 0.0 : data.rd();
        to.z = flat ? 0.0 : data.dd(from.z);
    }
    out.point(10, from);
    out.point(11, to);
}

void writePoint(Entity& entity, DxfWriter& out) { out.point(10, entity.point3()); }

void writeCircle(Entity& entity, DxfWriter& out)
{
    out.point(10, entity.point3());
    out.number(40, entity.data.bd());
    entity.thickness();
    writeNormal(entity.extrusion(), out);
}

void writeArc(Entity& entity, DxfWriter& out)
{
    writeCircle(entity, out);
    out.angle(50, entity.data.bd());
    out.angle(51, entity.data.bd());
}

void writeEllipse(Entity& entity, DxfWriter& out)
{
    out.point(10, entity.point3());
    out.point(11, entity.point3());
    writeNormal(entity.point3(), out);
    for (const int code : {40, 41, 42})  // radians here too
        out.number(code, entity.data.bd());
}

void writeRay(Entity& entity, DxfWriter& out)
{
    out.point(10, entity.point3());
    out.point(11, entity.point3());
}

void writeSolid(Entity& entity, DxfWriter& out)
{
    entity.thickness();
    entity.data.bd();  // elevation
    for (const int code : {10, 11, 12, 13}) {
        const double x = entity.data.rd();
        out.point(code, x, entity.data.rd());
    }
    writeNormal(entity.extrusion(), out);
}

void writeLightPolyline(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    const unsigned flags = data.bs();
    for (const unsigned bit : {4U, 8U, 2U})  // width, elevation, thickness
        if ((flags & bit) != 0)
            data.bd();
    if ((flags & 1) != 0)
        writeNormal(entity.point3(), out);
    // The least that each needs: its points may be those before, its bulges 0.
    const std::uint32_t count = data.count(data.bl(), entity.release() < 2000 ? 128 : 4);
    const std::uint32_t bulges = (flags & 16) != 0 ? data.count(data.bl(), 2) : 0;
    if ((flags & 1024) != 0)
        data.bl();  // identifiers
    if ((flags & 32) != 0)
        data.bl();  // widths
    if (count > kMostPoints || bulges > count)
        data.fail();
    out.integer(70, (flags & 512) != 0 ? 1 : 0);
    std::vector<Point> points;
    Point p;
    for (std::uint32_t i = 0; i < count && !data.failed(); ++i) {
        const bool whole = i == 0 || entity.release() < 2000;
        p.x = whole ? data.rd() : data.dd(p.x);
        p.y = whole ? data.rd() : data.dd(p.y);
        points.push_back(p);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        out.point(10, points[i].x, points[i].y);
        if (const double bulge = i < bulges ? data.bd() : 0.0; bulge != 0.0)
            out.number(42, bulge);
    }
}

// Vertices hang in its references.
void ownVertices(Entity& entity)
{
    entity.owns = true;
    if (entity.release() >= 2004)
        entity.owned = entity.data.bl();
}

void writePolyline2(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    out.integer(70, data.bs());
    data.bs();  // curve, widths
    data.bd();
    data.bd();
    entity.thickness();
    out.point(10, {0.0, 0.0, data.bd()});
    writeNormal(entity.extrusion(), out);
    ownVertices(entity);
}

void writePolyline3(Entity& entity, DxfWriter& out)
{
    const unsigned curve = entity.data.rc();
    out.integer(70, 8 | (entity.data.rc() & 1) | (curve != 0 ? 4 : 0));
    ownVertices(entity);
}

void writeVertex2(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    const unsigned flags = data.rc();
    out.point(10, entity.point3());
    if (data.bd() >= 0.0)  // else one width stands for both
        data.bd();
    if (const double bulge = data.bd(); bulge != 0.0)
        out.number(42, bulge);
    out.integer(70, flags);
}

void writeVertex3(Entity& entity, DxfWriter& out)
{
    const unsigned flags = entity.data.rc();
    out.point(10, entity.point3());
    out.integer(70, flags);
}

void writeLongText(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    out.point(10, entity.point3());
    entity.point3();  // normal
    entity.point3();  // direction
    data.bd();        // width
    if (entity.release() >= 2007)
        data.bd();
    out.number(40, data.bd());
    data.bs();  // attachment, flow, extents
    data.bs();
    data.bd();
    data.bd();
    std::string text = entity.text();
    for (; text.size() > 250; text.erase(0, 250))
        out.text(3, std::string_view(text).substr(0, 250));
    out.text(1, text);
}

// Drawn by its block.
void writeDimension(Entity& entity, DxfWriter& out)
{
    entity.reference();  // style
    out.text(2, entity.drawing.blockName(entity.reference()));
}

constexpr EntityKind kKinds[] = {
    {0x0A, "VERTEX", writeVertex2},
    {0x0B, "VERTEX", writeVertex3},
    {0x0F, "POLYLINE", writePolyline2},
    {0x10, "POLYLINE", writePolyline3},
    {0x11, "ARC", writeArc},
    {0x12, "CIRCLE", writeCircle},
    {0x13, "LINE", writeLine},
    {kFirstDimension, "DIMENSION", writeDimension},
    {0x1B, "POINT", writePoint},
    {0x1F, "SOLID", writeSolid},
    {0x20, "TRACE", writeSolid},
    {0x23, "ELLIPSE", writeEllipse},
    {0x28, "RAY", writeRay},
    {0x29, "XLINE", writeRay},
    {0x2C, "MTEXT", writeLongText},
    {kPolyline, "LWPOLYLINE", writeLightPolyline},
};

}  // namespace

std::span<const EntityKind> geometryKinds() { return kKinds; }

unsigned polylineClass(std::string_view classes)
{
    constexpr std::size_t kHead = 16 + 4;  // a mark, the size
    if (classes.size() <= kHead)
        return 0;
    for (Bits data(classes.substr(kHead)); !data.failed();) {
        const unsigned type = data.bs();
        data.bs();
        std::string name;
        for (int i = 0; i < 3; ++i)  // program, C++ class, DXF name
            name = data.text(data.bs(), false);
        data.b();
        data.bs();
        if (name == "LWPOLYLINE" && !data.failed())
            return type;
    }
    return 0;
}

}  // namespace dwg
