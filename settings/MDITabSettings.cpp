#include "settings/MDITabSettings.h"

#include "library/diagnostics/ExceptionText.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/registry/Registry.h"
#include "objectarx/acdocman.h"
#include "settings/OptionsDialog.h"

#include <mbstring.h>

CMDITabSettings::Cache CMDITabSettings::m_mapDefaultSettings;

bool CMDITabSettings::FileNameLess::operator()(const CString& sOne, const CString& sOther) const
{
    return ::_mbscmp(reinterpret_cast<const unsigned char*>(sOne.GetString()),
                     reinterpret_cast<const unsigned char*>(sOther.GetString())) < 0;
}

// ---- options

namespace {

CString registryKey()
{
    return "Software\\" + Tesk::CVersionBlock::getCompanyName() + "\\" + Tesk::CVersionBlock::getInternalName();
}

template <class T>
bool readOption(const char* sName, T& value)
{
    return Tesk::Registry::GetValue(HKEY_CURRENT_USER, registryKey(), sName, value);
}

template <class T>
bool writeOption(const char* sName, T value)
{
    return Tesk::Registry::SetValue(HKEY_CURRENT_USER, registryKey(), sName, value);
}

}  // namespace

bool CMDITabSettings::getTabLocation(DWORD& dwLocation) { return readOption("TabLocation", dwLocation); }
bool CMDITabSettings::setTabLocation(DWORD dwLocation) { return writeOption("TabLocation", dwLocation); }
bool CMDITabSettings::getIsDiscreet(bool& bDiscreet) { return readOption("IsDiscreet", bDiscreet); }
bool CMDITabSettings::setIsDiscreet(bool bDiscreet) { return writeOption("IsDiscreet", bDiscreet); }
bool CMDITabSettings::getUseToolTips(bool& bUse) { return readOption("UseToolTips", bUse); }
bool CMDITabSettings::setUseToolTips(bool bUse) { return writeOption("UseToolTips", bUse); }
bool CMDITabSettings::getUseExtensions(bool& bUse) { return readOption("UseExtensions", bUse); }
bool CMDITabSettings::setUseExtensions(bool bUse) { return writeOption("UseExtensions", bUse); }
bool CMDITabSettings::getUseIcons(bool& bUse) { return readOption("UseIcons", bUse); }
bool CMDITabSettings::setUseIcons(bool bUse) { return writeOption("UseIcons", bUse); }
bool CMDITabSettings::getUse(bool& bUse) { return readOption("Use", bUse); }
bool CMDITabSettings::setUse(bool bUse) { return writeOption("Use", bUse); }

// ---- texts

namespace {

// Empty only when no document is open.
CString currentFilename(const char* sFilename)
{
    if (*sFilename != '\0')
        return sFilename;
    const AcApDocument* pDocument = acDocManager->curDocument();
    return pDocument != nullptr ? pDocument->fileName() : "";
}

// Without a drawing only the standard files apply.
std::unique_ptr<CTabsDefaultSettings> load(const CString& sFilename)
{
    return sFilename.IsEmpty() ? CTabsDefaultSettings::createStandard()
                               : std::make_unique<CTabsDefaultSettings>(sFilename);
}

// Null, with a trace line that says where the reader stopped, on failure.
std::unique_ptr<CTabsDefaultSettings> tryLoad(const CString& sFilename)
{
    try {
        return load(sFilename);
    } catch (CException* pException) {
        const CString sError = Tesk::takeExceptionText(pException);
        TESK_TRACE("CMDITabSettings: texts for \"%s\" not read: %s\n", sFilename.GetString(), sError.GetString());
        return nullptr;
    }
}

}  // namespace

CTabsDefaultSettings* CMDITabSettings::getDefaultSettings(const char* sFilename)
{
    const CString sName = currentFilename(sFilename);
    auto iter = m_mapDefaultSettings.find(sName);
    if (iter == m_mapDefaultSettings.end() || iter->second == nullptr)
        iter = m_mapDefaultSettings.insert_or_assign(sName, load(sName)).first;
    TESK_ASSERT(iter != m_mapDefaultSettings.end());
    return iter->second.get();
}

// Every text comes through here, so a damaged file costs its texts and no more. The
// outcome is kept, so that it is not read again for each of them.
CTabsDefaultSettings* CMDITabSettings::findReadableSettings(const char* sFilename)
{
    const CString sName = currentFilename(sFilename);
    const auto [iter, bNew] = m_mapDefaultSettings.try_emplace(sName);
    if (bNew) {
        iter->second = tryLoad(sName);
        if (iter->second == nullptr && !sName.IsEmpty())
            iter->second = tryLoad(CString());
    }
    return iter->second.get();
}

CString CMDITabSettings::getText(const char* sFilename, const char* sKey)
{
    CTabsDefaultSettings* pSettings = findReadableSettings(sFilename);
    return pSettings != nullptr ? pSettings->getValue(sKey) : CString();
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
    CTabsDefaultSettings* pSettings = findReadableSettings(sFilename);
    return pSettings != nullptr ? pSettings->getModifiedText() : CString();
}

CString CMDITabSettings::getXrefsReadOnlyText(const char* sFilename)
{
    CTabsDefaultSettings* pSettings = findReadableSettings(sFilename);
    return pSettings != nullptr ? pSettings->getXrefsReadOnlyText() : CString();
}

void CMDITabSettings::clearDefaultSettings() { m_mapDefaultSettings.clear(); }

void CMDITabSettings::assertNoDefaultSettings() { TESK_ASSERT(m_mapDefaultSettings.empty()); }

// ---- the dialog

namespace {

// A missing value keeps the default that the caller put in.
void fillDialog(COptionsDialog& dialog)
{
    DWORD dwLocation = 1;
    bool bDiscreet = false;
    bool bToolTips = true;
    bool bExtensions = false;
    bool bIcons = true;
    bool bUse = true;
    CMDITabSettings::getTabLocation(dwLocation);
    CMDITabSettings::getIsDiscreet(bDiscreet);
    CMDITabSettings::getUseToolTips(bToolTips);
    CMDITabSettings::getUseExtensions(bExtensions);
    CMDITabSettings::getUseIcons(bIcons);
    CMDITabSettings::getUse(bUse);

    dialog.m_iTabPosition = static_cast<int>(dwLocation);
    dialog.m_bDiscreet = bDiscreet;
    dialog.m_bDebug = Tesk::getDiagnosticsLevel() == 2;
    dialog.m_bShowToolTips = bToolTips;
    dialog.m_bShowExtensions = bExtensions;
    dialog.m_bShowIcons = bIcons;
    dialog.m_bUseTabs = bUse;
}

// Stops at the first value that cannot be written.
bool storeDialog(const COptionsDialog& dialog)
{
    if (!CMDITabSettings::setTabLocation(static_cast<DWORD>(dialog.m_iTabPosition)) ||
        !CMDITabSettings::setIsDiscreet(dialog.m_bDiscreet != FALSE))
        return false;
    Tesk::setDiagnosticsLevel(dialog.m_bDebug ? 2 : 0);
    return CMDITabSettings::setUseToolTips(dialog.m_bShowToolTips != FALSE) &&
           CMDITabSettings::setUseExtensions(dialog.m_bShowExtensions != FALSE) &&
           CMDITabSettings::setUseIcons(dialog.m_bShowIcons != FALSE) &&
           CMDITabSettings::setUse(dialog.m_bUseTabs != FALSE);
}

}  // namespace

bool CMDITabSettings::editOptions()
{
    COptionsDialog dialog;
    fillDialog(dialog);
    if (dialog.DoModal() != IDOK)
        return false;
    if (storeDialog(dialog))
        return true;

    const CString sTitle = Tesk::CVersionBlock::getCompanyName() + " " + Tesk::CVersionBlock::getInternalName();
    ::MessageBoxA(nullptr, "Failed to save ZavikMDITabs configuration.\n\nPlease contact your Systems or CAD manager.",
                  sTitle, MB_OK | MB_ICONERROR);
    return false;
}
