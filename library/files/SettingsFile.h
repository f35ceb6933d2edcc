#pragma once

// "ProjectSettings.txt" at a project's root: keyword lines, each followed by a block in
// braces. The domain and standard settings files have the same form.

#include "library/files/ProjectEntries.h"
#include "mfc/afx.h"

#include <array>
#include <map>
#include <vector>

namespace Tesk {

// A BORDER line: description, block name (without what follows its first "."), and four
// more fields, kept as written.
struct CBorderEntry {
    CString m_sDescription;
    CString m_sBlockName;
    std::array<CString, 4> m_aFields;
};

// A TITLEBLOCKS or MOCKBORDERS block.
struct CBlockGroup {
    CString m_sCategory;
    CString m_sDefaultLayer = "Z010LX000";
    bool m_bDefaultSpaceIsModel = false;
    bool m_bInsertable = false;
    CString m_sIssueFormat;
    CString m_sLocationPath;
    std::vector<CBorderEntry> m_vecBorders;
    // Every other key, in upper case; quotes around the value are gone. In a title block
    // the values name attribute tags.
    std::map<CString, CString> m_mapOther;
};

// What such a file says; the defaults, and not valid, until one is read.
class CSettingsFile {
public:
    CSettingsFile() = default;
    // Reads the file. When that fails, for whatever reason, the record is not valid and
    // holds the defaults.
    explicit CSettingsFile(const char* sPath);

    // Replaces everything by what the file says. Raises the text reader's file error, and
    // then the record holds the defaults. Malformed lines are passed over.
    void read(const char* sPath);
    // Adds what the lines say. Relative project paths are below `sFolder`, which ends in a
    // backslash.
    void merge(const std::vector<CProjectEntry>& vecEntries, const std::string& sFolder);

    bool m_bValid = false;
    CString m_sProjectLabel;
    CString m_sProjectPaths;  // absolute folders, each preceded by ";"
    CString m_sIssueDirectory = "<PROJECTSETTINGS>\\outgoing\\<DATE:%Y-%m-%d>";
    CString m_sJobNumber;
    std::vector<CString> m_vecJobTitle;
    std::vector<CString> m_vecOfficeDetails;
    std::vector<CString> m_vecClientTitle;
    std::vector<CString> m_vecDrawingStatus;
    std::vector<CString> m_vecDrawingDiscipline;
    std::map<CString, CString> m_mapIssues;
    std::map<CString, CString> m_mapCadStandards;
    std::vector<CBlockGroup> m_vecTitleBlocks;
    std::vector<CBlockGroup> m_vecMockBorders;
};

// The border in use and the title block that it belongs to: process-wide copies, empty
// until a search for a drawing's title block has chosen them.
struct CCurrentBorder {
    CBorderEntry m_border;
    CBlockGroup m_titleBlock;
};

const CCurrentBorder& getCurrentBorder();
void setCurrentBorder(const CBorderEntry& border, const CBlockGroup& titleBlock);

}  // namespace Tesk
