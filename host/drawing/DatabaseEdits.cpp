#include "host/drawing/Database.h"

#include "dxf/ObjectGraph.h"
#include "host/drawing/EntityText.h"
#include "host/drawing/UndoList.h"

#include <algorithm>

namespace host {

namespace {

// A block's attribute definition as an attribute of a reference: its tags but
// the prompt, moved by the offset.
EntityText attributeText(Database& database, const DxfRecord& definition, unsigned long long owner, double dx,
                         double dy)
{
    EntityText text(database, "ATTRIB", owner);
    text.mark("AcDbEntity");
    bool attribute = false;
    bool inGroup = false;
    TagReader reader = definition.tags();
    for (DxfTag tag; nextTag(reader, tag) && tag.code < 1000;) {
        if (tag.code == 102)
            inGroup = tag.value.find('{') != std::string_view::npos;
        else if (inGroup || tag.code == 0 || tag.code == 5 || tag.code == 330 || tag.code == 360 || tag.code == 3)
            continue;
        else if (tag.code == 100) {
            attribute = attribute || tag.value == "AcDbAttributeDefinition";
            if (tag.value == "AcDbText")
                text.mark("AcDbText");
            else if (tag.value == "AcDbAttributeDefinition")
                text.mark("AcDbAttribute");
        } else if (tag.code == 10 || tag.code == 11)
            text.add(tag.code, toDouble(tag.value) + dx);
        else if (tag.code == 20 || tag.code == 21)
            text.add(tag.code, toDouble(tag.value) + dy);
        else
            text.addRaw(tag.text);
    }
    return text;
}

InsertNode* firstInsertWith(Database& database, const std::string& sTag, AcDbStub*& pAttribute)
{
    std::vector<BlockNode*> owners = database.graph().blocks();
    std::sort(owners.begin(), owners.end(), [](const BlockNode* a, const BlockNode* b) { return a->rank < b->rank; });
    for (const BlockNode* pOwner : owners)
        for (AcDbStub* pEntity : pOwner->entities) {
            if (pEntity->kind != NodeKind::BlockReference || pEntity->erased)
                continue;
            InsertNode& insert = static_cast<InsertNode&>(*pEntity);
            for (AcDbStub* p : insert.attributes)
                if (!p->erased && sameName(database.file().encoding().decode(p->record->value(2)), sTag)) {
                    pAttribute = p;
                    return &insert;
                }
        }
    return nullptr;
}

}  // namespace

Acad::ErrorStatus Database::setHeaderVariable(const std::string& sName, const std::vector<std::string>& values)
{
    const HeaderEntry entry = file().headerEntry("$" + sName);
    const std::size_t count = entry.values().size();
    if (count == 0)
        return Acad::eKeyNotFound;
    if (count != values.size())
        return Acad::eInvalidInput;
    DxfRecord& header = *file().section("HEADER");
    m_undo->change(header, withValues(header, entry, values), {}, {sName});
    return Acad::eOk;
}

Acad::ErrorStatus Database::addLine(double x1, double y1, double x2, double y2)
{
    const UndoGroup group(*m_undo);
    BlockNode& owner = graph().modelSpace();
    EntityText text(*this, "LINE", owner.handle);
    text.mark("AcDbEntity").add(8, "0").mark("AcDbLine");
    text.add(10, x1).add(20, y1).add(30, 0.0).add(11, x2).add(21, y2).add(31, 0.0);
    DxfRecord* pRecord = file().create(text.text());
    file().linkBefore(*pRecord, endOfSection(*this, "ENTITIES"));
    AcDbStub& node = graph().addEntity(owner, *pRecord, text.handle());
    updateHandleSeed(*this);
    m_undo->appended({&node}, {pRecord});
    return Acad::eOk;
}

Acad::ErrorStatus Database::eraseLast()
{
    const auto& entities = graph().modelSpace().entities;
    const auto last = std::find_if(entities.rbegin(), entities.rend(), [](const AcDbStub* p) { return !p->erased; });
    if (last == entities.rend())
        return Acad::eInvalidInput;
    std::vector<AcDbStub*> nodes{*last};
    if ((*last)->kind == NodeKind::BlockReference)
        for (AcDbStub* p : static_cast<InsertNode&>(**last).attributes)
            if (!p->erased)
                nodes.push_back(p);
    m_undo->erase(nodes, recordsOf(*(*last)->record));
    return Acad::eOk;
}

Acad::ErrorStatus Database::insertBlock(const std::string& sName, double x, double y)
{
    BlockNode* pBlock = graph().block(sName);
    if (pBlock == nullptr || pBlock->layout)
        return Acad::eKeyNotFound;
    std::vector<const DxfRecord*> definitions;
    for (const AcDbStub* p : pBlock->entities)
        if (!p->erased && p->record->type() == "ATTDEF" && (toInt(p->record->value(70)) & 2) == 0)
            definitions.push_back(p->record);

    const UndoGroup group(*m_undo);
    BlockNode& owner = graph().modelSpace();
    EntityText text(*this, "INSERT", owner.handle);
    text.mark("AcDbEntity").add(8, "0").mark("AcDbBlockReference");
    if (!definitions.empty())
        text.add(66, "1");
    text.add(2, file().encoding().encode(pBlock->name)).add(10, x).add(20, y).add(30, 0.0);
    DxfRecord& position = endOfSection(*this, "ENTITIES");
    std::vector<DxfRecord*> records{file().create(text.text())};
    file().linkBefore(*records.back(), position);
    InsertNode& insert = graph().addInsert(owner, pBlock, *records.back(), text.handle());
    std::vector<AcDbStub*> nodes{&insert};
    const double dx = pBlock->record == nullptr ? x : x - toDouble(pBlock->record->value(10));
    const double dy = pBlock->record == nullptr ? y : y - toDouble(pBlock->record->value(20));
    for (const DxfRecord* pDefinition : definitions) {
        const EntityText attribute = attributeText(*this, *pDefinition, insert.handle, dx, dy);
        records.push_back(file().create(attribute.text()));
        file().linkBefore(*records.back(), position);
        nodes.push_back(&graph().addAttribute(insert, *records.back(), attribute.handle()));
    }
    if (!definitions.empty()) {
        EntityText end(*this, "SEQEND", insert.handle);
        records.push_back(file().create(end.mark("AcDbEntity").add(8, "0").text()));
        file().linkBefore(*records.back(), position);
    }
    updateHandleSeed(*this);
    m_undo->appended(nodes, records);
    return Acad::eOk;
}

Acad::ErrorStatus Database::setAttribute(const std::string& sTag, const std::string& sValue)
{
    AcDbStub* pAttribute = nullptr;
    if (firstInsertWith(*this, sTag, pAttribute) == nullptr)
        return Acad::eKeyNotFound;
    const std::string sRaw = file().encoding().encode(sValue);
    m_undo->changeObject(*pAttribute, withValue(file(), *pAttribute->record, 1, sRaw));
    return Acad::eOk;
}

}  // namespace host
