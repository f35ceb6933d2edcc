#include "dwg/Entities.h"

#include "dwg/Drawing.h"
#include "dwg/Geometry.h"

#include <vector>

namespace dwg {

namespace {

void writeInsert(Entity& entity, DxfWriter& out)
{
    Bits& data = entity.data;
    const Point at = entity.point3();
    Point scale{1.0, 1.0, 1.0};
    switch (entity.release() >= 2000 ? data.bb() : 4) {
    case 0:
        scale.x = data.rd();
        scale.y = data.dd(scale.x);
        scale.z = data.dd(scale.x);
        break;
    case 1:
        scale.y = data.dd(1.0);
        scale.z = data.dd(1.0);
        break;
    case 2:
        scale.x = scale.y = scale.z = data.rd();
        break;
    case 4:
        scale = entity.point3();
        break;
    }
    const double rotation = data.bd();
    const Point normal = entity.point3();
    entity.owns = data.b();
    if (entity.owns && entity.release() >= 2004)
        entity.owned = data.bl();
    if (entity.owns)
        out.integer(66, 1);
    out.text(2, entity.drawing.blockName(entity.reference()));
    out.point(10, at);
    out.number(41, scale.x);
    out.number(42, scale.y);
    out.number(43, scale.z);
    out.angle(50, rotation);
    out.point(210, normal);
}

void writeManyInserts(Entity& entity, DxfWriter& out)
{
    writeInsert(entity, out);
    out.integer(70, entity.data.bs());
    out.integer(71, entity.data.bs());
    out.number(44, entity.data.bd());
    out.number(45, entity.data.bd());
}

// The fields of a TEXT; its vertical mode has another group where it is an attribute's.
void writeTextFields(Entity& entity, DxfWriter& out, int groupOfVertical)
{
    Bits& data = entity.data;
    const bool old = entity.release() < 2000;
    const unsigned left = old ? 0 : data.rc();
    const auto has = [&](unsigned bit) { return (left & bit) == 0; };
    Point at, aligned, normal;
    double thickness = 0.0;
    const double elevation = old ? data.bd() : has(1) ? data.rd() : 0.0;
    at.x = data.rd();
    at.y = data.rd();
    if (old) {
        aligned.x = data.rd();
        aligned.y = data.rd();
    } else if (has(2)) {
        aligned.x = data.dd(at.x);
        aligned.y = data.dd(at.y);
    }
    normal = entity.extrusion();
    thickness = entity.thickness();
    const auto number = [&] { return old ? data.bd() : data.rd(); };
    const double oblique = has(4) ? number() : 0.0;
    const double rotation = has(8) ? number() : 0.0;
    const double height = number();
    const double width = has(0x10) ? number() : 1.0;
    const std::string text = entity.text();
    const unsigned generation = has(0x20) ? data.bs() : 0;
    const unsigned horizontal = has(0x40) ? data.bs() : 0;
    const unsigned vertical = has(0x80) ? data.bs() : 0;
    at.z = aligned.z = elevation;
    out.number(39, thickness);
    out.point(10, at);
    out.number(40, height);
    out.text(1, text);
    out.angle(50, rotation);
    out.number(41, width);
    out.angle(51, oblique);
    out.integer(71, generation);
    out.integer(72, horizontal);
    if (horizontal != 0 || vertical != 0)
        out.point(11, aligned);
    out.point(210, normal);
    out.integer(groupOfVertical, vertical);
}

void writeText(Entity& entity, DxfWriter& out) { writeTextFields(entity, out, 73); }

// The tag, and the prompt of a definition.
void writeAttribute(Entity& entity, DxfWriter& out, bool definition)
{
    writeTextFields(entity, out, 74);
    if (entity.release() >= 2010)
        entity.data.rc();
    const unsigned kind = entity.release() >= 2018 ? entity.data.rc() : 1;
    if (kind == 2 || kind == 4) {  // of several lines: what stands between is not understood
        std::vector<std::string> texts(2);
        while (entity.hasMoreTexts() && !entity.failed())
            texts.push_back(entity.text());
        out.text(2, texts[texts.size() - (definition ? 2 : 1)]);
        return;
    }
    out.text(2, entity.text());
    out.integer(73, entity.data.bs());
    out.integer(70, entity.data.rc());
    if (!definition)
        return;
    if (entity.release() >= 2007)
        entity.data.b();
    if (entity.release() >= 2010)
        entity.data.rc();
    out.text(3, entity.text());
}

void writeAttributeOf(Entity& entity, DxfWriter& out) { writeAttribute(entity, out, false); }
void writeAttributeDefinition(Entity& entity, DxfWriter& out) { writeAttribute(entity, out, true); }

constexpr EntityKind kKinds[] = {
    {1, "TEXT", writeText},     {2, "ATTRIB", writeAttributeOf}, {3, "ATTDEF", writeAttributeDefinition},
    {7, "INSERT", writeInsert}, {8, "INSERT", writeManyInserts},
};

}  // namespace

const EntityKind* entityKind(unsigned type)
{
    for (const std::span<const EntityKind> kinds : {std::span<const EntityKind>(kKinds), geometryKinds()})
        for (const EntityKind& kind : kinds)
            if (kind.type == type)
                return &kind;
    return nullptr;
}

}  // namespace dwg
