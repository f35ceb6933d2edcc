#include "host/drawing/SummaryInfo.h"

#include "host/drawing/Database.h"
#include "host/drawing/EntityText.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/ObjectGraph.h"
#include "host/drawing/UndoList.h"

#include <algorithm>

namespace host {

namespace {

constexpr const char* kNames[Summary::Count] = {"TITLE",    "SUBJECT",     "AUTHOR",         "KEYWORDS",
                                                "COMMENTS", "LASTSAVEDBY", "REVISIONNUMBER", "HYPERLINKBASE"};
// The group codes in the XRECORD; the hyperlink base is the second tag of code 1.
constexpr int kCodes[Summary::Count] = {2, 3, 4, 7, 6, 8, 9, 1};
constexpr std::string_view kTag = "$CUSTOMPROPERTYTAG";
constexpr std::string_view kValue = "$CUSTOMPROPERTY";
constexpr int kFirstCustom = 300;
constexpr int kMaxCustom = 10;

bool usesRecord(const Database& database) { return database.version() >= "AC1012" && database.version() < "AC1018"; }

DxfRecord* objectByHandle(const DxfFile& file, unsigned long long handle)
{
    for (DxfRecord* p = file.section("OBJECTS"); p != nullptr && p->type() != "ENDSEC"; p = p->next())
        if (toHandle(p->value(5)) == handle)
            return p;
    return nullptr;
}

// The dictionary of the named objects: the first one.
DxfRecord* rootDictionary(const DxfFile& file)
{
    DxfRecord* p = file.section("OBJECTS");
    while (p != nullptr && p->type() != "DICTIONARY" && p->type() != "ENDSEC")
        p = p->next();
    return p == nullptr || p->type() == "ENDSEC" ? nullptr : p;
}

DxfRecord* propertiesRecord(const DxfFile& file)
{
    const DxfRecord* pRoot = rootDictionary(file);
    if (pRoot == nullptr)
        return nullptr;
    TagReader reader = pRoot->tags();
    bool found = false;
    for (DxfTag tag; nextTag(reader, tag);) {
        if (tag.code == 3)
            found = tag.value == "DWGPROPS";
        else if (found && (tag.code == 350 || tag.code == 360))
            return objectByHandle(file, toHandle(tag.value));
    }
    return nullptr;
}

Summary readRecord(const DxfFile& file, const DxfRecord& record)
{
    Summary summary;
    TagReader reader = record.tags();
    int ones = 0;
    bool contents = false;
    for (DxfTag tag; nextTag(reader, tag);) {
        const std::string sText = file.encoding().decode(tag.value);
        contents = contents || tag.code == 100;
        if (!contents)
            continue;
        if (tag.code >= kFirstCustom && tag.code < kFirstCustom + kMaxCustom) {
            const std::size_t equals = sText.find('=');
            if (equals != 0 && equals != std::string::npos)
                summary.custom.emplace_back(sText.substr(0, equals), sText.substr(equals + 1));
        }
        for (std::size_t i = 0; i < Summary::Count; ++i)
            if (tag.code == kCodes[i] && (tag.code != 1 || ++ones == 2))
                summary.fields[i] = sText;
    }
    return summary;
}

Summary readHeader(const DxfFile& file, const DxfRecord& header)
{
    Summary summary;
    std::string sKey;
    for (const HeaderEntry& entry : headerEntries(header)) {
        const std::string sText = entry.values.empty() ? "" : file.encoding().decode(entry.values.front().value);
        if (sameName(entry.name, kTag))
            sKey = sText;
        else if (sameName(entry.name, kValue))
            summary.custom.emplace_back(sKey, sText);
        for (std::size_t i = 0; i < Summary::Count; ++i)
            if (sameName(entry.name.substr(std::min<std::size_t>(1, entry.name.size())), kNames[i]))
                summary.fields[i] = sText;
    }
    return summary;
}

std::string customText(const DxfFile& file, const Summary& summary)
{
    std::string sText;
    for (const auto& [sKey, sValue] : summary.custom)
        sText += entryText(file, kTag, 1, file.encoding().encode(sKey)) +
                 entryText(file, kValue, 1, file.encoding().encode(sValue));
    return sText;
}

void writeHeader(Database& database, const Summary& old, const Summary& summary)
{
    const UndoGroup group(database.undoList());
    DxfFile& file = database.file();
    DxfRecord* pHeader = file.section("HEADER");
    if (pHeader == nullptr) {
        endOfSection(database, "HEADER");
        pHeader = file.section("HEADER");
    }
    const bool customDiffers = old.custom != summary.custom;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < Summary::Count; ++i)
        if (old.fields[i] != summary.fields[i])
            names.push_back(kNames[i]);
    if (customDiffers)
        names.push_back("CUSTOMPROPERTY");

    // What is there is edited in place; what is new goes to the header's end.
    std::string sText;
    std::string_view rest = pHeader->text();
    bool customWritten = !customDiffers;
    std::array<bool, Summary::Count> present{};
    for (const HeaderEntry& entry : headerEntries(*pHeader)) {
        sText += rest.substr(0, static_cast<std::size_t>(entry.text.data() - rest.data()));
        rest.remove_prefix(static_cast<std::size_t>(entry.text.data() + entry.text.size() - rest.data()));
        std::string sEntry(entry.text);
        if (customDiffers && (sameName(entry.name, kTag) || sameName(entry.name, kValue))) {
            sEntry = customWritten ? "" : customText(file, summary);
            customWritten = true;
        }
        for (std::size_t i = 0; i < Summary::Count; ++i)
            if (sameName(entry.name.substr(std::min<std::size_t>(1, entry.name.size())), kNames[i])) {
                present[i] = true;
                if (old.fields[i] != summary.fields[i])
                    sEntry = entry.values.size() == 1
                                 ? withValues(entry, {file.encoding().encode(summary.fields[i])})
                                 : entryText(file, entry.name, 1, file.encoding().encode(summary.fields[i]));
            }
        sText += sEntry;
    }
    sText += rest;
    for (std::size_t i = 0; i < Summary::Count; ++i)
        if (!present[i] && !summary.fields[i].empty())
            sText += entryText(file, std::string("$") + kNames[i], 1, file.encoding().encode(summary.fields[i]));
    if (!customWritten)
        sText += customText(file, summary);
    database.undoList().changeHeader(*pHeader, sText, names);
}

// The record's tags after its subclass mark; the times of an old record stay.
std::string recordContents(const DxfFile& file, const DxfRecord* pOld, const Summary& summary)
{
    const auto kept = [&](int code, std::string_view fallback) {
        const std::string_view value = pOld == nullptr ? std::string_view() : pOld->value(code);
        return file.tag(code, value.empty() ? fallback : value);
    };
    std::string sText = file.tag(1, "DWGPROPS COOKIE");
    for (const int field : {Summary::Title, Summary::Subject, Summary::Author, Summary::Comments, Summary::Keywords,
                            Summary::LastSavedBy, Summary::RevisionNumber})
        sText += file.tag(kCodes[field], file.encoding().encode(summary.fields[static_cast<std::size_t>(field)]));
    for (int i = 0; i < kMaxCustom; ++i) {
        std::string sEntry = "=";
        if (i < std::ssize(summary.custom)) {
            const auto& [sKey, sValue] = summary.custom[static_cast<std::size_t>(i)];
            sEntry = file.encoding().encode(sKey + "=" + sValue);
        }
        sText += file.tag(kFirstCustom + i, sEntry);
    }
    return sText + kept(40, "0.0") + kept(41, "0.0") + kept(42, "0.0") +
           file.tag(1, file.encoding().encode(summary.fields[Summary::HyperlinkBase])) + kept(90, "0");
}

Acad::ErrorStatus writeRecord(Database& database, DxfRecord* pRecord, const Summary& summary)
{
    if (summary.custom.size() > kMaxCustom)
        return Acad::eInvalidInput;
    DxfFile& file = database.file();
    UndoList& undo = database.undoList();
    const UndoGroup group(undo);
    if (pRecord != nullptr) {
        // Handle, owner and the like stay: all up to the first tag of contents.
        std::string sText;
        TagReader reader = pRecord->tags();
        for (DxfTag tag; nextTag(reader, tag) && !(tag.code == 1 && tag.value == "DWGPROPS COOKIE");)
            sText += tag.text;
        undo.changeHeader(*pRecord, sText + recordContents(file, pRecord, summary), {"DWGPROPS"});
        return Acad::eOk;
    }
    DxfRecord* pRoot = rootDictionary(file);
    if (pRoot == nullptr)
        return Acad::eKeyNotFound;
    EntityText text(database, "XRECORD", toHandle(pRoot->value(5)));
    text.mark("AcDbXrecord").add(280, "1").addRaw(recordContents(file, nullptr, summary));
    pRecord = file.create(text.text());
    file.linkBefore(*pRecord, endOfSection(database, "OBJECTS"));
    undo.appended({}, {pRecord});
    updateHandleSeed(database);
    const std::string sEntry = file.tag(3, "DWGPROPS") + file.tag(350, handleText(text.handle()));
    undo.changeHeader(*pRoot, std::string(pRoot->text()) + sEntry, {"DWGPROPS"});
    return Acad::eOk;
}

}  // namespace

const char* summaryFieldName(int field) { return kNames[field]; }

Summary readSummary(const Database& database)
{
    const DxfFile& file = database.file();
    if (usesRecord(database)) {
        const DxfRecord* pRecord = propertiesRecord(file);
        return pRecord == nullptr ? Summary() : readRecord(file, *pRecord);
    }
    const DxfRecord* pHeader = file.section("HEADER");
    return pHeader == nullptr ? Summary() : readHeader(file, *pHeader);
}

Acad::ErrorStatus writeSummary(Database& database, const Summary& summary)
{
    const Summary old = readSummary(database);
    if (old == summary)
        return Acad::eOk;
    if (usesRecord(database))
        return writeRecord(database, propertiesRecord(database.file()), summary);
    writeHeader(database, old, summary);
    return Acad::eOk;
}

}  // namespace host
