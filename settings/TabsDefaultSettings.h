#pragma once

// The texts of the tab strip for one drawing, from the layered copies of
// "MDITabs.ini" that apply to it.

#include "library/files/DefaultSettings.h"
#include "library/files/DefaultSettingsManager.h"

#include <windows.h>

#include <memory>
#include <vector>

class CTabsDefaultSettings : public Tesk::CDefaultSettingsManager {
public:
    // Loads at once; the reader's exceptions pass through.
    explicit CTabsDefaultSettings(const char* sFilename);
    // The same from the copies that can be read; what keeps the others out is traced with
    // the first text that is asked for, and again after the traces were off. Without a name
    // from the installation's and the domain's copies.
    static std::unique_ptr<CTabsDefaultSettings> createReadable(const char* sFilename);

    // Loads for another drawing; with bForce also for the same one. False, with
    // everything as it was, when that is not needed or fails.
    bool reset(const std::vector<CString>& sNewFiles, bool bForce) override;
    void traceContents(int iIndent) override;
    ~CTabsDefaultSettings() override;

    CString getSupportSubfolderName() override;

    // The key's value in the unnamed section; empty when no file defines it.
    CString getValue(const char* sKey) override;
    // The markers, without the quotes and apostrophes at their ends.
    CString getModifiedText();
    CString getXrefsReadOnlyText();

    // A copy had to be left out, and one of the set has been changed or removed since.
    bool isRepaired() const;

    // A copy, why it was left out (empty when it was not), and how it was before.
    struct Copy {
        CString sPath;
        CString sReason;
        WIN32_FILE_ATTRIBUTE_DATA state;
    };
    // From the most general to the most specific; none unless made by createReadable.
    const std::vector<Copy>& getCopies() const { return m_vecCopies; }

private:
    CTabsDefaultSettings() : CDefaultSettingsManager("", nullptr) {}
    void load(const std::vector<CString>& sFiles);
    void findCopies();
    // False when a copy more has to be left out first.
    bool loadReadable();
    void traceLeftOut();
    // The same names in the same order, without case.
    bool isCurrent(const std::vector<CString>& sNewFiles) const;

    std::unique_ptr<Tesk::CDefaultSettings> m_pSettings;
    std::vector<Copy> m_vecCopies;
    bool m_bTraced = false;
};
