#pragma once

// The texts of the tab strip for one drawing, from the layered copies of
// "MDITabs.ini" that apply to it.

#include "library/files/DefaultSettings.h"
#include "library/files/DefaultSettingsManager.h"

#include <memory>

class CTabsDefaultSettings : public Tesk::CDefaultSettingsManager {
public:
    // Loads at once; the reader's exceptions pass through.
    explicit CTabsDefaultSettings(const char* sFilename);
    // The installation's and the domain's texts alone, for no drawing. Raises as the
    // constructor does.
    static std::unique_ptr<CTabsDefaultSettings> createStandard();

    // Loads for another drawing; with bForce also for the same one. False, with
    // everything as it was, when that is not needed or fails.
    bool reset(const std::vector<CString>& sNewFiles, bool bForce) override;
    void traceContents(int iIndent) override;
    ~CTabsDefaultSettings() override;

    CString getSupportSubfolderName() override;

    // The key's value in the unnamed section; empty when no file defines it.
    CString getValue(const char* sKey) override;
    // The two markers, without the quotes and apostrophes at their ends.
    CString getModifiedText();
    CString getXrefsReadOnlyText();

private:
    CTabsDefaultSettings();

    // The same names in the same order, without case.
    bool isCurrent(const std::vector<CString>& sNewFiles) const;

    std::unique_ptr<Tesk::CDefaultSettings> m_pSettings;
};
