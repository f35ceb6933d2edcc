#include "dwg/Header.h"

#include <iterator>
#include <string>

namespace dwg {

namespace {

constexpr unsigned kDictionary = 0x2A;
constexpr const char* kProperties[] = {"$TITLE",    "$SUBJECT",     "$AUTHOR",         "$KEYWORDS",
                                       "$COMMENTS", "$LASTSAVEDBY", "$REVISIONNUMBER", "$HYPERLINKBASE"};

// By the number that files have. The page stands where a character may have two bytes.
constexpr struct {
    const char* name;
    unsigned doubleBytePage = 0;
} kCodePages[] = {{"ANSI_1252"},     {"ascii"},         {"iso8859-1"},       {"iso8859-2"},     {"iso8859-3"},
                  {"iso8859-4"},     {"iso8859-5"},     {"iso8859-6"},       {"iso8859-7"},     {"iso8859-8"},
                  {"iso8859-9"},     {"dos437"},        {"dos850"},          {"dos852"},        {"dos855"},
                  {"dos857"},        {"dos860"},        {"dos861"},          {"dos863"},        {"dos864"},
                  {"dos865"},        {"dos869"},        {"dos932", 932},     {"mac-roman"},     {"big5", 950},
                  {"ksc5601", 949},  {"johab", 1361},   {"dos866"},          {"ANSI_1250"},     {"ANSI_1251"},
                  {"ANSI_1252"},     {"gb2312", 936},   {"ANSI_1253"},       {"ANSI_1254"},     {"ANSI_1255"},
                  {"ANSI_1256"},     {"ANSI_1257"},     {"ANSI_874"},        {"ANSI_932", 932}, {"ANSI_936", 936},
                  {"ANSI_949", 949}, {"ANSI_950", 950}, {"ANSI_1361", 1361}, {"ANSI_1252"},     {"ANSI_1258"}};

const auto& codePageOf(const Sections& sections)
{
    return kCodePages[sections.codePage < std::size(kCodePages) ? sections.codePage : 0];
}

void writeVariable(DxfWriter& out, const char* sName, std::string_view text)
{
    out.name(9, sName);
    out.text(1, text);
}

// What is missing at its end is empty.
void writeSummary(const Sections& sections, DxfWriter& out)
{
    Bits data(sections.summary);
    const bool wide = sections.release >= 2007;
    for (const char* sName : kProperties)
        writeVariable(out, sName, data.text(data.rs(), wide));
    data.skip(24 * 8);  // times
    for (unsigned count = data.rs(); count != 0 && !data.failed(); --count) {
        const std::string key = data.text(data.rs(), wide);
        const std::string value = data.text(data.rs(), wide);
        if (data.failed())
            break;
        writeVariable(out, "$CUSTOMPROPERTYTAG", key);
        writeVariable(out, "$CUSTOMPROPERTY", value);
    }
}

// The record's own groups follow each other as bytes.
void writeRecord(Bits data, DxfWriter& out)
{
    while (data.left() >= 16 && !data.failed()) {
        const unsigned code = data.rs();
        if (code <= 9 || (code >= 300 && code <= 309)) {
            const unsigned length = data.rs();
            data.rc();  // code page
            const std::string text = data.text(length, false);
            if (!data.failed())
                out.text(static_cast<int>(code), text);
        } else {
            const unsigned bytes = code < 40 ? 24 : code < 60 ? 8 : code < 80 ? 2 : code < 90 ? 0 : code < 100 ? 4 : 0;
            if (bytes == 0)
                return;
            data.skip(std::size_t{bytes} * 8);
        }
    }
}

// The handle that the dictionary of the drawing's named objects has for its properties.
std::uint64_t findProperties(ObjectMap& map)
{
    for (std::size_t i = 0; i < map.size(); ++i) {
        if (map.typeAt(i) != kDictionary)
            continue;
        Object dictionary = map.open(i);
        dictionary.readPreamble();
        if (dictionary.owner != 0 || dictionary.failed())
            continue;
        const std::uint32_t count = dictionary.references.count(dictionary.data.bl(), 8);
        if (dictionary.release() >= 2000)
            dictionary.data.bs();
        if (dictionary.release() >= 14)
            dictionary.data.rc();
        std::uint32_t place = count;
        for (std::uint32_t k = 0; k < count; ++k)
            if (dictionary.text() == "DWGPROPS")
                place = k;
        for (std::uint32_t k = 0; k < count; ++k)
            if (const std::uint64_t handle = dictionary.reference(); k == place && !dictionary.failed())
                return handle;
    }
    return 0;
}

}  // namespace

unsigned doubleBytePage(const Sections& sections)
{
    return sections.release < 2007 ? codePageOf(sections).doubleBytePage : 0;
}

void writeHeader(const Sections& sections, DxfWriter& out)
{
    out.lines("0\nSECTION\n2\nHEADER\n9\n$ACADVER\n");
    out.name(1, sections.version);
    out.name(9, "$DWGCODEPAGE");
    out.name(3, codePageOf(sections).name);
    if (sections.release >= 2004)
        writeSummary(sections, out);
    out.lines("0\nENDSEC\n");
}

void writeObjects(const Sections& sections, ObjectMap& map, DxfWriter& out)
{
    const std::uint64_t handle = sections.release < 2004 ? findProperties(map) : 0;
    if (handle == 0)
        return;
    Object record = map.open(map.find(handle));
    record.readPreamble();
    const std::uint32_t size = record.data.count(record.data.bl(), 8);
    if (record.failed())
        return;
    out.lines("0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n3\nDWGPROPS\n");
    out.handle(350, handle);
    out.lines("0\nXRECORD\n");
    out.handle(5, handle);
    out.lines("100\nAcDbXrecord\n");
    writeRecord(record.data.first(std::size_t{size} * 8), out);
    out.lines("0\nENDSEC\n");
}

}  // namespace dwg
