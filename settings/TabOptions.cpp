#include "settings/TabOptions.h"

#include "library/diagnostics/VersionBlock.h"
#include "library/registry/Registry.h"
#include "settings/MDITabSettings.h"

namespace {

template <class T>
bool readOption(const char* sName, T& value)
{
    return Tesk::Registry::GetValue(HKEY_CURRENT_USER, CTabOptions::getKey(), sName, value);
}

template <class T>
bool writeOption(const char* sName, T value)
{
    return Tesk::Registry::SetValue(HKEY_CURRENT_USER, CTabOptions::getKey(), sName, value);
}

bool readFlag(bool (*pGetter)(bool&), bool bDefault)
{
    pGetter(bDefault);
    return bDefault;
}

}  // namespace

CString CTabOptions::getKey()
{
    return "Software\\" + Tesk::CVersionBlock::getCompanyName() + "\\" + Tesk::CVersionBlock::getInternalName();
}

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

bool CTabOptions::readExtensions() { return readFlag(&CMDITabSettings::getUseExtensions, CTabOptions().bExtensions); }
bool CTabOptions::readIcons() { return readFlag(&CMDITabSettings::getUseIcons, CTabOptions().bIcons); }
bool CTabOptions::readUse() { return readFlag(&CMDITabSettings::getUse, CTabOptions().bUse); }

CTabOptions CTabOptions::read()
{
    CTabOptions options;
    CMDITabSettings::getTabLocation(options.dwLocation);
    CMDITabSettings::getIsDiscreet(options.bDiscreet);
    CMDITabSettings::getUseToolTips(options.bToolTips);
    CMDITabSettings::getUseExtensions(options.bExtensions);
    CMDITabSettings::getUseIcons(options.bIcons);
    CMDITabSettings::getUse(options.bUse);
    return options;
}
