#include "tabscheck/LoadEntries.h"

#include "library/registry/Registry.h"

#include <windows.h>

#include <string>

namespace tabscheck {

namespace {

using Tesk::Registry::GetValue;

constexpr const char* kHosts = "SOFTWARE\\Autodesk\\AutoCAD";
constexpr const char* kApplication = "Applications\\ZavikMDITabs";
constexpr DWORD kLongestName = 256;
constexpr DWORD kAtStart = 2, kDisabled = 16;  // of LOADCTRLS

std::vector<std::string> subkeys(const std::string& sPath)
{
    std::vector<std::string> names;
    const Tesk::Registry::CKey key(HKEY_LOCAL_MACHINE, sPath.c_str(), false);
    char sName[kLongestName];
    for (DWORD i = 0, size = kLongestName;
         key && ::RegEnumKeyExA(key.get(), i, sName, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = kLongestName)
        names.emplace_back(sName);
    return names;
}

// What the user's entry does instead of the machine's; empty when it does the same, or when
// there are not both.
std::string difference(const std::string& sPath)
{
    CString sMachine, sUser;
    if (!GetValue(HKEY_LOCAL_MACHINE, sPath.c_str(), "LOADER", sMachine) ||
        !Tesk::Registry::CKey(HKEY_CURRENT_USER, sPath.c_str(), false))
        return {};
    DWORD dwControls = 0;
    const bool controls = GetValue(HKEY_CURRENT_USER, sPath.c_str(), "LOADCTRLS", dwControls);
    if (!GetValue(HKEY_CURRENT_USER, sPath.c_str(), "LOADER", sUser))
        return "it has no LOADER, so the host loads nothing";
    if (controls && (dwControls & kDisabled) != 0)
        return "its LOADCTRLS has 16, so the host does not load the module";
    if (sUser.CompareNoCase(sMachine) != 0)
        return "the host loads \"" + std::string(sUser.GetString()) + "\" and not \"" + sMachine.GetString() + "\"";
    if (controls && (dwControls & kAtStart) == 0)
        return "its LOADCTRLS lacks 2, so the host does not load the module at its start";
    return {};
}

}  // namespace

std::vector<Problem> checkLoadEntries()
{
    std::vector<Problem> problems;
    for (const std::string& sRelease : subkeys(kHosts)) {
        const std::string sReleasePath = std::string(kHosts) + "\\" + sRelease;
        for (const std::string& sProduct : subkeys(sReleasePath)) {
            const std::string sPath = sReleasePath + "\\" + sProduct + "\\" + kApplication;
            if (const std::string sText = difference(sPath); !sText.empty())
                problems.push_back({"HKEY_CURRENT_USER\\" + sPath, 0, 0, false,
                                    "this user's entry hides the machine's: " + sText, "", false});
        }
    }
    return problems;
}

}  // namespace tabscheck
