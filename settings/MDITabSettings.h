#pragma once

// The strip's configuration: six options in the user's registry, and nine texts
// that come from the "MDITabs.ini" files of each drawing.

#include "mfc/afx.h"
#include "settings/TabsDefaultSettings.h"

#include <windows.h>

#include <map>
#include <memory>

class CMDITabSettings {
public:
    CMDITabSettings() = delete;

    // ---- options
    // Read afresh at each call. A failed read answers false and leaves the output
    // as it was: the caller brings the default. A failed write answers false.
    static bool getTabLocation(DWORD& dwLocation);  // 0 top, 1 bottom
    static bool setTabLocation(DWORD dwLocation);
    static bool getIsDiscreet(bool& bDiscreet);
    static bool setIsDiscreet(bool bDiscreet);
    static bool getUseToolTips(bool& bUse);
    static bool setUseToolTips(bool bUse);
    static bool getUseExtensions(bool& bUse);
    static bool setUseExtensions(bool bUse);
    static bool getUseIcons(bool& bUse);
    static bool setUseIcons(bool bUse);
    static bool getUse(bool& bUse);
    static bool setUse(bool bUse);

    // ---- texts
    // For the drawing of that full path; empty stands for the current document. Empty
    // when no file defines the text. None raises: when a drawing's files cannot be
    // read, that is traced once and the standard ones stand in for them.
    static CString getPopupCloseText(const char* sFilename);
    static CString getPopupSaveText(const char* sFilename);
    static CString getPopupOptionsText(const char* sFilename);
    static CString getPopupXrefsText(const char* sFilename);
    static CString getTooltipText(const char* sFilename);
    static CString getDefaultTooltipText(const char* sFilename);
    static CString getTooltipTitle(const char* sFilename);
    static CString getModifiedText(const char* sFilename);
    static CString getXrefsReadOnlyText(const char* sFilename);

    // ---- the texts' cache, one entry a file name, case counting
    // Loads at the first request and then raises what the reader raises.
    static CTabsDefaultSettings* getDefaultSettings(const char* sFilename);
    static void clearDefaultSettings();
    // The start-up check that nothing is cached.
    static void assertNoDefaultSettings();

    // Shows the options dialog and stores what was chosen. False when it was
    // cancelled or, after a message box, when a value could not be stored.
    static bool editOptions();

private:
    // As multibyte text.
    struct FileNameLess {
        bool operator()(const CString& sOne, const CString& sOther) const;
    };
    using Cache = std::map<CString, std::unique_ptr<CTabsDefaultSettings>, FileNameLess>;

    static CString getText(const char* sFilename, const char* sKey);
    static CTabsDefaultSettings* findReadableSettings(const char* sFilename);

    // A null entry: the drawing's files could not be read, nor the standard ones.
    static Cache m_mapDefaultSettings;
};
