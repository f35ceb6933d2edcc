#pragma once

// The state machine that turns the lines of a project settings file into its record.

#include "library/files/SettingsFile.h"

#include <string>
#include <string_view>

namespace Tesk {

class CSettingsFileReader {
public:
    // Relative project paths are below `sFolder`, which ends in a backslash.
    CSettingsFileReader(CSettingsFile& settings, std::string sFolder);

    // Takes the next line of the file, as read.
    void readLine(std::string_view sLine);

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

    static State stateOf(const CString& sKeyword);

    void closeBlock();
    void readBlockLine(const CString& sLine);
    void readProjectPath(const CString& sInput);
    void readIssue(const CString& sKey, const CString& sValue);
    void readCadStandard(const CString& sKey, const CString& sValue);
    void readGroupLine(const CString& sKey, const CString& sValue);
    void readBorder(std::string_view sValue);

    CSettingsFile& m_settings;
    const std::string m_sFolder;
    State m_state = STATE_TOP;
    CBlockGroup m_group;
    CString m_sLastIssue;
    bool m_bAnyIssue = false;
};

}  // namespace Tesk
