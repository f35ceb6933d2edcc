#include "tabscheck/LoadEntries.h"

#include "library/registry/Registry.h"
#include "library/system/Handles.h"

#include <windows.h>

#include <string>

namespace tabscheck {

namespace {

constexpr const char* kHosts = "SOFTWARE\\Autodesk\\AutoCAD";
constexpr const char* kApplication = "Applications\\ZavikMDITabs";
constexpr DWORD kLongestName = 256;

std::vector<std::string> subkeys(const std::string& sPath)
{
    std::vector<std::string> names;
    HKEY opened = nullptr;
    ::RegOpenKeyExA(HKEY_LOCAL_MACHINE, sPath.c_str(), 0, KEY_READ, &opened);
    const UniqueKey key(opened);
    char sName[kLongestName];
    for (DWORD i = 0, size = kLongestName;
         key && ::RegEnumKeyExA(key.get(), i, sName, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = kLongestName)
        names.emplace_back(sName);
    return names;
}

}  // namespace

std::vector<Problem> checkLoadEntries()
{
    std::vector<Problem> problems;
    for (const std::string& sRelease : subkeys(kHosts)) {
        const std::string sReleasePath = std::string(kHosts) + "\\" + sRelease;
        for (const std::string& sProduct : subkeys(sReleasePath)) {
            const std::string sPath = sReleasePath + "\\" + sProduct + "\\" + kApplication;
            CString sMachine, sUser;
            if (Tesk::Registry::GetValue(HKEY_LOCAL_MACHINE, sPath.c_str(), "LOADER", sMachine) &&
                Tesk::Registry::GetValue(HKEY_CURRENT_USER, sPath.c_str(), "LOADER", sUser))
                problems.push_back({false, "HKEY_CURRENT_USER\\" + sPath, 0, 0,
                                    "this user's entry hides the machine's: the host loads \"" +
                                        std::string(sUser.GetString()) + "\" and not \"" + sMachine.GetString() + "\"",
                                    ""});
        }
    }
    return problems;
}

}  // namespace tabscheck
