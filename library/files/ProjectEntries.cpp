#include "library/text/Regex.h"

#include "library/files/ProjectEntries.h"

#include "library/text/MultiByte.h"

#include <algorithm>
#include <iterator>

namespace Tesk {

namespace {

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
    for (const auto& keyword : kProjectKeywords) {
        if (sKeyword == keyword.sName)
            return keyword.block;
    }
    return ProjectBlock::Unknown;
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
// field has one character at least, and the last one need not be closed.
std::vector<std::string> borderFields(std::string_view sValue)
{
    static const boost::regex sField("\\s*\"([^\"]+)(\"|\\z)");
    std::vector<std::string> vecFields;
    const char* const pEnd = sValue.data() + sValue.size();
    for (boost::cregex_iterator it(sValue.data(), pEnd, sField, boost::match_continuous), end;
         it != end && vecFields.size() < 6; ++it)
        vecFields.push_back((*it)[1]);
    return vecFields;
}

}  // namespace Tesk
