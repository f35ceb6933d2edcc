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
    Point scale;
    if (entity.release() < 2000) {
        scale = entity.point3();
    } else {
        const unsigned code = data.bb();  // bit 1: x is 1; bit 2: the others are as x
        scale.x = (code & 1) == 0 ? data.rd() : 1.0;
        scale.y = code < 2 ? data.dd(scale.x) : scale.x;
        scale.z = code < 2 ? data.dd(scale.x) : scale.x;
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
    const auto number = [&](unsigned bit, double otherwise) {
        return !has(bit) ? otherwise : old ? data.bd() : data.rd();
    };
    Point at, aligned;
    at.z = aligned.z = number(1, 0.0);
    at.x = data.rd();
    at.y = data.rd();
    if (has(2)) {
        aligned.x = old ? data.rd() : data.dd(at.x);
        aligned.y = old ? data.rd() : data.dd(at.y);
    }
    out.point(10, at);
    out.point(210, entity.extrusion());
    out.number(39, entity.thickness());
    out.angle(51, number(4, 0.0));
    out.angle(50, number(8, 0.0));
    out.number(40, number(0, 0.0));
    out.number(41, number(0x10, 1.0));
    out.text(1, entity.text());
    out.integer(71, has(0x20) ? data.bs() : 0);
    const unsigned horizontal = has(0x40) ? data.bs() : 0;
    const unsigned vertical = has(0x80) ? data.bs() : 0;
    out.integer(72, horizontal);
    out.integer(groupOfVertical, vertical);
    if (horizontal != 0 || vertical != 0)
        out.point(11, aligned);
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
    if (type > kFirstDimension && type <= kLastDimension)
        type = kFirstDimension;
    for (const std::span<const EntityKind> kinds : {std::span<const EntityKind>(kKinds), geometryKinds()})
        for (const EntityKind& kind : kinds)
            if (kind.type == type)
                return &kind;
    return nullptr;
}

}  // namespace dwg
