#pragma once

// What the lines of a project settings file say, before anything is made of it.

#include "library/files/TextFileContents.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Tesk {

enum class ProjectBlock {
    None,
    Unknown,  // skipped up to its end
    ProjectPath,
    ProjectLabel,
    JobNumber,
    IssueDirectory,
    JobTitle,
    OfficeDetails,
    ClientTitle,
    DrawingStatus,
    DrawingDiscipline,
    Issue,
    CadStandards,
    TitleBlocks,
    MockBorders
};

// The keywords that begin a block which is read.
inline constexpr struct {
    const char* sName;
    ProjectBlock block;
} kProjectKeywords[] = {
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

struct CProjectEntry {
    enum Kind {
        Keyword,
        Open,
        Close,
        Line,
        // In a group of title blocks or mock borders.
        Field,
        Border,
        Mapping
    };
    Kind m_kind;
    ProjectBlock m_block;      // that the line stands in; of a keyword, that it begins
    uint32_t m_uLine;          // from 1; empty lines and comments count
    std::string_view m_sLine;  // as read
    std::string_view m_sText;  // trimmed
    std::string m_sKey;        // what stands before the first space or tab, in capitals
    std::string_view m_sValue;
};

// In the order of the lines, without comments; good while the contents are.
std::vector<CProjectEntry> parseProject(CTextFileContents& contents);

// None unless it is a keyword's (in capitals) or Unknown for any other.
ProjectBlock blockOf(std::string_view sKeyword);

// Whether a line of a project settings file says nothing.
bool isCommentString(std::string_view sLine);

// The fields in double quotes of a BORDER line, up to six.
std::vector<std::string> borderFields(std::string_view sValue);
// A border with so many is read.
inline bool isBorder(std::size_t fields) { return fields == 2 || fields == 5 || fields == 6; }

}  // namespace Tesk
