#include "dxf/SummaryInfo.h"

#include "dxf/ApiCalls.h"
#include "dxf/Drawing.h"

#include <iterator>

namespace dxf {

namespace {

constexpr std::string_view kNames[] = {"$TITLE",    "$SUBJECT",     "$AUTHOR",         "$KEYWORDS",
                                       "$COMMENTS", "$LASTSAVEDBY", "$REVISIONNUMBER", "$HYPERLINKBASE"};
constexpr std::string_view kTag = "$CUSTOMPROPERTYTAG";
// The group codes in the XRECORD; the hyperlink base is the second tag of code 1.
constexpr int kCodes[] = {2, 3, 4, 7, 6, 8, 9, 1};
constexpr int kFirstCustom = 300;
constexpr int kMostCustom = 10;

// The properties' record: named in the dictionary of the named objects, the first one.
const DxfRecord* propertiesRecord(const DxfFile& file)
{
    unsigned long long handle = 0;
    bool root = true;
    for (const DxfRecord* p = file.section("OBJECTS"); p != nullptr && p->type() != "ENDSEC"; p = p->next()) {
        if (handle != 0 && toHandle(p->value(5)) == handle)
            return p;
        if (p->type() != "DICTIONARY" || !root)
            continue;
        root = false;
        TagReader reader = p->tags();
        bool found = false;
        for (DxfTag tag; nextTag(reader, tag);) {
            if (tag.code == 3)
                found = tag.value == "DWGPROPS";
            else if (found && (tag.code == 350 || tag.code == 360))
                handle = toHandle(tag.value);
        }
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
        contents = contents || tag.code == 100;
        if (!contents)
            continue;
        const std::string sText = file.encoding().decode(tag.value);
        if (tag.code >= kFirstCustom && tag.code < kFirstCustom + kMostCustom) {
            const std::size_t equals = sText.find('=');
            if (equals != 0 && equals != std::string::npos)
                summary.custom.emplace_back(sText.substr(0, equals), sText.substr(equals + 1));
        }
        for (std::size_t i = 0; i < Summary::Custom; ++i)
            if (tag.code == kCodes[i] && (tag.code != 1 || ++ones == 2))
                summary.fields[i] = sText;
    }
    return summary;
}

Summary readHeader(const DxfFile& file)
{
    Summary summary;
    std::string sKey;
    for (const HeaderEntry& entry : file.headerEntries()) {
        const std::size_t field = summaryField(entry.name);
        if (field > Summary::Custom)
            continue;
        const std::vector<DxfTag> values = entry.values();
        if (values.empty())
            continue;
        const std::string sText = file.encoding().decode(values.front().value);
        if (field < Summary::Custom)
            summary.fields[field] = sText;
        else if (sameName(entry.name, kTag))
            sKey = sText;
        else
            summary.custom.emplace_back(sKey, sText);
    }
    return summary;
}

}  // namespace

std::size_t summaryField(std::string_view variable)
{
    for (std::size_t i = 0; i < Summary::Custom; ++i)
        if (sameName(variable, kNames[i]))
            return i;
    return sameName(variable, kTag) || sameName(variable, "$CUSTOMPROPERTY") ? Summary::Custom : Summary::None;
}

std::string_view summaryVariable(std::size_t field) { return kNames[field]; }

bool keepsSummaryInRecord(const DxfFile& file) { return file.version() >= "AC1012" && file.version() < "AC1018"; }

Summary readSummary(const DxfFile& file)
{
    if (!keepsSummaryInRecord(file))
        return readHeader(file);
    const DxfRecord* const pRecord = propertiesRecord(file);
    return pRecord != nullptr ? readRecord(file, *pRecord) : Summary();
}

Acad::ErrorStatus SummaryInfo::getCustomSummaryInfo(int iIndex, char*& sKey, char*& sValue) const
{
    sKey = sValue = nullptr;
    if (iIndex < 0 || iIndex >= std::ssize(m_summary.custom))
        return Acad::eInvalidIndex;
    const auto& [sName, sText] = m_summary.custom[static_cast<std::size_t>(iIndex)];
    Acad::ErrorStatus status = acutNewString(sName.c_str(), sKey);
    if (status == Acad::eOk)
        status = acutNewString(sText.c_str(), sValue);
    if (status != Acad::eOk)
        acutDelString(sKey);
    return status;
}

Acad::ErrorStatus SummaryInfo::addCustomSummaryInfo(const char* sKey, const char* sValue)
{
    if (sKey == nullptr || *sKey == '\0')
        return Acad::eInvalidKey;
    m_summary.custom.emplace_back(sKey, sValue == nullptr ? "" : sValue);
    return Acad::eOk;
}

Acad::ErrorStatus SummaryInfo::deleteCustomSummaryInfo(int iIndex)
{
    if (iIndex < 0 || iIndex >= std::ssize(m_summary.custom))
        return Acad::eInvalidIndex;
    m_summary.custom.erase(m_summary.custom.begin() + iIndex);
    return Acad::eOk;
}

}  // namespace dxf

Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* pDatabase, AcDbDatabaseSummaryInfo*& pInfo)
{
    pInfo = nullptr;
    if (dxf::callFails("acdbGetSummaryInfo"))
        return Acad::eOutOfMemory;
    if (pDatabase == nullptr)
        return Acad::eInvalidInput;
    pInfo = new dxf::SummaryInfo(dxf::readSummary(dxf::Drawing::of(pDatabase)->file()));
    return Acad::eOk;
}
