#include "settings/MDITabSettings.h"

#include "library/diagnostics/Prerelease.h"
#include "library/drawing/DocumentName.h"
#include "objectarx/acdocman.h"

decltype(CMDITabSettings::m_mapDefaultSettings) CMDITabSettings::m_mapDefaultSettings;

namespace {

// Empty only when no document is open.
CString currentFilename(const char* sFilename)
{
    if (*sFilename != '\0')
        return sFilename;
    const AcApDocument* pDocument = acDocManager->curDocument();
    return pDocument != nullptr ? Tesk::fileNameOf(pDocument) : "";
}

CString getText(const char* sFilename, const char* sKey)
{
    return CMDITabSettings::getDefaultSettings(sFilename)->getValue(sKey);
}

}  // namespace

CTabsDefaultSettings* CMDITabSettings::getDefaultSettings(const char* sFilename)
{
    const CString sName = currentFilename(sFilename);
    auto iter = m_mapDefaultSettings.find(sName);
    if (iter == m_mapDefaultSettings.end() || iter->second->isRepaired())
        iter = m_mapDefaultSettings.insert_or_assign(sName, CTabsDefaultSettings::createReadable(sName)).first;
    TESK_ASSERT(iter != m_mapDefaultSettings.end());
    return iter->second.get();
}

CString CMDITabSettings::getPopupCloseText(const char* sFilename) { return getText(sFilename, "PopupCloseText"); }
CString CMDITabSettings::getPopupSaveText(const char* sFilename) { return getText(sFilename, "PopupSaveText"); }
CString CMDITabSettings::getPopupOptionsText(const char* sFilename) { return getText(sFilename, "PopupOptionsText"); }
CString CMDITabSettings::getPopupXrefsText(const char* sFilename) { return getText(sFilename, "PopupXrefsText"); }
CString CMDITabSettings::getTooltipText(const char* sFilename) { return getText(sFilename, "TooltipText"); }
CString CMDITabSettings::getDefaultTooltipText(const char* sFilename)
{
    return getText(sFilename, "DefaultTooltipText");
}
CString CMDITabSettings::getTooltipTitle(const char* sFilename) { return getText(sFilename, "TooltipTitle"); }

CString CMDITabSettings::getModifiedText(const char* sFilename)
{
    return getDefaultSettings(sFilename)->getModifiedText();
}

CString CMDITabSettings::getXrefsReadOnlyText(const char* sFilename)
{
    return getDefaultSettings(sFilename)->getXrefsReadOnlyText();
}

void CMDITabSettings::clearDefaultSettings() { m_mapDefaultSettings.clear(); }

void CMDITabSettings::assertNoDefaultSettings() { TESK_ASSERT(m_mapDefaultSettings.empty()); }
