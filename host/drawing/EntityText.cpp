#include "host/drawing/EntityText.h"

#include "dxf/ObjectGraph.h"
#include "host/drawing/UndoList.h"

#include <charconv>
#include <cstring>

namespace host {

EntityText::EntityText(Database& database, std::string_view type, unsigned long long owner)
    : m_file(database.file()), m_marks(hasSubclassMarks(database)), m_handle(database.graph().newHandle())
{
    m_sText = m_file.tag(0, type);
    if (database.graph().handlesAreWritten())
        add(5, handleText(m_handle));
    if (m_marks && owner != 0)
        add(330, handleText(owner));
}

EntityText& EntityText::add(int code, std::string_view value)
{
    m_sText += m_file.tag(code, value);
    return *this;
}

EntityText& EntityText::add(int code, double value)
{
    char digits[40];
    const auto result = std::to_chars(digits, digits + sizeof digits - 2, value);
    *result.ptr = '\0';
    // A real is written with its point.
    return add(code, std::strpbrk(digits, ".en") != nullptr ? std::string(digits) : std::string(digits) + ".0");
}

EntityText& EntityText::addRaw(std::string_view tagText)
{
    m_sText += tagText;
    return *this;
}

EntityText& EntityText::mark(std::string_view subclass) { return m_marks ? add(100, subclass) : *this; }

std::string handleText(unsigned long long handle)
{
    char digits[17];
    AcDbHandle(handle).getIntoAsciiBuffer(digits);
    return digits;
}

bool hasSubclassMarks(const Database& database) { return database.file().version() >= "AC1012"; }

DxfRecord& endOfSection(Database& database, std::string_view name)
{
    DxfFile& file = database.file();
    if (DxfRecord* p = file.section(name)) {
        while (p->next() != nullptr && p->type() != "ENDSEC")
            p = p->next();
        return *p;
    }
    // Blocks go before entities, which are last.
    DxfRecord* pPosition = file.section("ENTITIES") != nullptr ? file.section("ENTITIES") : file.first();
    while (name == "ENTITIES" && pPosition->next() != nullptr && pPosition->type() != "EOF")
        pPosition = pPosition->next();
    DxfRecord* pBegin = file.create(file.tag(0, "SECTION") + file.tag(2, name));
    DxfRecord* pEnd = file.create(file.tag(0, "ENDSEC"));
    file.linkBefore(*pBegin, *pPosition);
    file.linkBefore(*pEnd, *pPosition);
    database.undoList().appended({}, {pBegin, pEnd});
    return *pEnd;
}

std::vector<DxfRecord*> recordsOf(DxfRecord& first)
{
    std::vector<DxfRecord*> records{&first};
    const bool block = first.type() == "BLOCK";
    const std::string_view last = block ? "ENDBLK" : "SEQEND";
    const auto belongs = [&](const DxfRecord& record) {
        if (block)
            return record.type() != "BLOCK" && record.type() != "ENDSEC";
        return record.type() == "ATTRIB" || record.type() == "VERTEX" || record.type() == "SEQEND";
    };
    for (DxfRecord* p = first.next(); p != nullptr && belongs(*p); p = p->next()) {
        records.push_back(p);
        if (p->type() == last)
            break;
    }
    return records;
}

std::string withValues(const DxfRecord& header, const HeaderEntry& entry, const std::vector<std::string>& values)
{
    std::string sText(header.text());
    const std::vector<DxfTag> old = entry.values();
    // From the last to the first, so that the positions before stay good.
    for (std::size_t i = values.size(); i-- > 0;) {
        const std::string_view value = old[i].value;
        sText.replace(static_cast<std::size_t>(value.data() - header.text().data()), value.size(), values[i]);
    }
    return sText;
}

void updateHandleSeed(Database& database)
{
    const HeaderEntry entry = database.file().headerEntry("$HANDSEED");
    if (!database.graph().handlesAreWritten() || entry.values().size() != 1)
        return;
    DxfRecord& header = *database.file().section("HEADER");
    database.undoList().change(header, withValues(header, entry, {handleText(database.graph().nextHandle())}), {}, {});
}

}  // namespace host
