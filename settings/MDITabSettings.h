#pragma once

// The strip's configuration: options in the user's registry, and texts
// that come from the "MDITabs.ini" files of each drawing.

#include "mfc/afx.h"
#include "settings/FileNameLess.h"
#include "settings/TabsDefaultSettings.h"

#include <windows.h>

#include <map>
#include <memory>

class CMDITabSettings {
public:
    CMDITabSettings() = delete;

    // ---- options (TabOptions.cpp)
    // Read afresh at each call. A failed read answers false and leaves the output as it
    // was: CTabOptions has the defaults. A failed write answers false.
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
    // when no file defines the text, or none that can be read.
    static CString getPopupCloseText(const char* sFilename);
    static CString getPopupSaveText(const char* sFilename);
    static CString getPopupOptionsText(const char* sFilename);
    static CString getPopupXrefsText(const char* sFilename);
    static CString getTooltipText(const char* sFilename);
    static CString getDefaultTooltipText(const char* sFilename);
    static CString getTooltipTitle(const char* sFilename);
    static CString getModifiedText(const char* sFilename);
    static CString getXrefsReadOnlyText(const char* sFilename);

    // ---- the texts' cache, one entry a file name
    // Loads at the first request, and again after a damaged file of the set has changed.
    // Damaged files are left out, with a trace line each. Good until the next request.
    static CTabsDefaultSettings* getDefaultSettings(const char* sFilename);
    static void clearDefaultSettings();
    // The start-up check that nothing is cached.
    static void assertNoDefaultSettings();

    // Shows the options dialog and stores what was chosen. False when it was
    // cancelled or, after a message box, when a value could not be stored.
    static bool editOptions();  // EditOptions.cpp

private:
    static std::map<CString, std::unique_ptr<CTabsDefaultSettings>, FileNameLess> m_mapDefaultSettings;
};
