#pragma once

// The state machine that turns the lines of a project settings file into its record.

#include "library/files/SettingsFile.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Tesk {

class CSettingsFileReader {
public:
    // Relative project paths are below `sFolder`, which ends in a backslash.
    CSettingsFileReader(CSettingsFile& settings, std::string sFolder);

    // What became of a line.
    enum class Line {
        Passed,  // empty, a comment, a brace, or read without any further difference
        Keyword,
        UnknownKeyword,  // skipped with its block
        Border,
        IgnoredBorder,
        Mapping,
    };

    // Takes the next line of the file, as read.
    Line readLine(std::string_view sLine);

    // The block being read is one of title blocks; at the file's end that means that its
    // end is missing, and the block ignored.
    bool isInTitleBlock() const { return m_state == STATE_TITLEBLOCKS; }
    // The group being read.
    const CBlockGroup& getGroup() const { return m_group; }

    // Key, in upper case, and value of a trimmed line, divided at its first space or tab.
    static std::pair<CString, CString> splitLine(std::string_view sLine);
    // How many quoted fields a BORDER line has, up to six.
    static std::size_t countFields(std::string_view sValue);
    // The keywords that begin a block which is read.
    static std::vector<std::string> getKeywords();

private:
    enum State {
        STATE_TOP,
        STATE_SKIP,
        STATE_PROJECTPATH,
        STATE_PROJECTLABEL,
        STATE_JOBNUMBER,
        STATE_ISSUEDIRECTORY,
        STATE_JOBTITLE,
        STATE_OFFICEDETAILS,
        STATE_CLIENTTITLE,
        STATE_DWGSTATUS,
        STATE_DWGDISCIPLINE,
        STATE_ISSUE,
        STATE_CADSTANDARDS,
        STATE_TITLEBLOCKS,
        STATE_MOCKBORDERS
    };

    struct Keyword {
        const char* sName;
        State state;
    };
    static const Keyword kKeywords[13];

    static State stateOf(const CString& sKeyword);

    void closeBlock();
    Line readBlockLine(const CString& sLine);
    void readProjectPath(const CString& sInput);
    void readIssue(const CString& sKey, const CString& sValue);
    void readCadStandard(const CString& sKey, const CString& sValue);
    Line readGroupLine(const CString& sKey, const CString& sValue);
    bool readBorder(std::string_view sValue);

    CSettingsFile& m_settings;
    const std::string m_sFolder;
    State m_state = STATE_TOP;
    CBlockGroup m_group;
    CString m_sLastIssue;
    bool m_bAnyIssue = false;
};

}  // namespace Tesk
