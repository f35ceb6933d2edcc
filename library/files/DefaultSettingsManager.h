#pragma once

// The base of what takes its defaults from layered settings files: it finds every copy of
// a file that applies to some drawings and reads them, the most specific one last.

#include "library/files/DefaultSettings.h"
#include "library/files/Locator.h"
#include "mfc/afx.h"

#include <map>
#include <memory>
#include <vector>

namespace Tesk {

class CDefaultSettingsManager {
public:
    // Without a locator one is made and owned; a given one is borrowed.
    CDefaultSettingsManager(const char* sFile, Support::File::CLocator* pLocator);
    CDefaultSettingsManager(const CDefaultSettingsManager&) = delete;
    CDefaultSettingsManager& operator=(const CDefaultSettingsManager&) = delete;

    // Reloads for the given drawings; false when nothing was loaded.
    virtual bool reset(const std::vector<CString>& vecFiles, bool bForce) = 0;
    // reset for the host's current document, which there must be.
    virtual bool resetForCurrentDocument(bool bForce);
    virtual void traceContents(int iIndent) = 0;
    virtual ~CDefaultSettingsManager();

    // The sub-folder that the locator looks into: the module's internal name. Empty stands
    // for the locator's own default.
    virtual CString getSupportSubfolderName();

    // The standard folders' copies alone. The caller owns the result.
    virtual CDefaultSettings* createStandardSettings(const char* sFileName, bool bKeepLines);
    // Every copy for these drawings; empty when there is none. The caller owns the result.
    // The reader's exceptions pass through.
    virtual CDefaultSettings* createSettings(const char* sFileName, const std::vector<CString>& vecDrawings,
                                             bool bKeepLines);

    // Not to be reached here: a derived class that needs the first two has its own.
    virtual std::map<CString, CString> getAllValues();
    virtual CString getSectionValue(const char* sSection, const char* sKey);
    // The unnamed section's value.
    virtual CString getValue(const char* sKey);

protected:
    std::vector<CString> m_vecFiles;  // the drawings that the settings were last built for
    Support::File::CLocator* m_pLocator;
    bool m_bOwnsLocator;
};

}  // namespace Tesk
