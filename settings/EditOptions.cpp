// The options through their dialog.
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "settings/MDITabSettings.h"
#include "settings/OptionsDialog.h"
#include "settings/TabOptions.h"

namespace {

void fillDialog(COptionsDialog& dialog)
{
    const CTabOptions options = CTabOptions::read();
    dialog.m_iTabPosition = static_cast<int>(options.dwLocation);
    dialog.m_bDiscreet = options.bDiscreet;
    dialog.m_bDebug = Tesk::getDiagnosticsLevel() == 2;
    dialog.m_bShowToolTips = options.bToolTips;
    dialog.m_bShowExtensions = options.bExtensions;
    dialog.m_bShowIcons = options.bIcons;
    dialog.m_bUseTabs = options.bUse;
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
