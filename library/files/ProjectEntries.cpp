#include "library/files/ProjectEntries.h"

#include "library/text/MultiByte.h"

#include <algorithm>
#include <iterator>

namespace Tesk {

namespace {

constexpr struct {
    const char* sName;
    ProjectBlock block;
} kKeywords[] = {
    {"PROJECTPATH", ProjectBlock::ProjectPath},
    {"PROJECTLABEL", ProjectBlock::ProjectLabel},
    {"JOBNUMBER", ProjectBlock::JobNumber},
    {"ISSUEDIRECTORY", ProjectBlock::IssueDirectory},
    {"JOBTITLE", ProjectBlock::JobTitle},
    {"OFFICEDETAILS", ProjectBlock::OfficeDetails},
    {"CLIENTTITLE", ProjectBlock::ClientTitle},
    {"DWGSTATUS", ProjectBlock::DrawingStatus},
    {"DWGDISCIPLINE", ProjectBlock::DrawingDiscipline},
    {"ISSUE", ProjectBlock::Issue},
    {"CADSTANDARDS", ProjectBlock::CadStandards},
    {"TITLEBLOCKS", ProjectBlock::TitleBlocks},
    {"MOCKBORDERS", ProjectBlock::MockBorders},
};

constexpr std::string_view kGroupFields[] = {"CATEGORY",   "DEFAULTLAYER", "DEFAULTSPACE",
                                             "INSERTABLE", "ISSUEFORMAT",  "LOCATIONPATH"};

CProjectEntry::Kind kindOf(ProjectBlock block, std::string_view sKey)
{
    if (block != ProjectBlock::TitleBlocks && block != ProjectBlock::MockBorders)
        return CProjectEntry::Line;
    if (sKey == "BORDER")
        return CProjectEntry::Border;
    const bool bField = std::find(std::begin(kGroupFields), std::end(kGroupFields), sKey) != std::end(kGroupFields);
    return bField ? CProjectEntry::Field : CProjectEntry::Mapping;
}

}  // namespace

bool isCommentString(std::string_view sLine) { return sLine.substr(0, 1) == "#" || sLine.substr(0, 2) == "//"; }

ProjectBlock blockOf(std::string_view sKeyword)
{
    for (const auto& keyword : kKeywords) {
        if (sKeyword == keyword.sName)
            return keyword.block;
    }
    return ProjectBlock::Unknown;
}

std::vector<std::string> getProjectKeywords()
{
    std::vector<std::string> vecNames;
    for (const auto& keyword : kKeywords)
        vecNames.push_back(keyword.sName);
    return vecNames;
}

std::vector<CProjectEntry> parseProject(CTextFileContents& contents)
{
    std::vector<CProjectEntry> vecEntries;
    ProjectBlock block = ProjectBlock::None;
    std::string_view sLine;
    for (uint32_t uLine = 1; contents.nextNarrow(sLine); ++uLine) {
        const std::string_view sText = MultiByte::trim(sLine);
        if (sText.empty() || isCommentString(sText))
            continue;
        CProjectEntry entry = {CProjectEntry::Open, block, uLine, sLine, sText, {}, {}};
        if (sText == "}") {
            entry.m_kind = CProjectEntry::Close;
            block = ProjectBlock::None;
        } else if (sText != "{") {
            const std::size_t blank = std::min(sText.find_first_of(" \t"), sText.size());
            entry.m_sKey = MultiByte::upper(MultiByte::trim(sText.substr(0, blank)));
            entry.m_sValue = MultiByte::trim(sText.substr(blank));
            const bool bKeyword = block == ProjectBlock::None;
            if (bKeyword)
                entry.m_block = block = blockOf(entry.m_sKey);
            entry.m_kind = bKeyword ? CProjectEntry::Keyword : kindOf(block, entry.m_sKey);
        }
        vecEntries.push_back(std::move(entry));
    }
    return vecEntries;
}

// By the rules of sscanf for ` "%[^"]" "%[^"]" ...`: white space between the fields, a
// field has one character at least, and the last one need not be closed. Scanned by hand,
// since a field may be as long as its line.
std::vector<std::string> borderFields(std::string_view sValue)
{
    std::vector<std::string> vecFields;
    std::size_t at = 0;
    while (vecFields.size() < 6) {
        at = sValue.find_first_not_of(" \t\r\n\v\f", at);
        if (at == sValue.npos || sValue[at] != '"')
            break;
        ++at;
        const std::size_t end = std::min(sValue.find('"', at), sValue.size());
        if (end == at)
            break;
        vecFields.emplace_back(sValue.substr(at, end - at));
        if (end == sValue.size())
            break;
        at = end + 1;
    }
    return vecFields;
}

}  // namespace Tesk
