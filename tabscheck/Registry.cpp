#include "tabscheck/Registry.h"

#include "library/files/DomainSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/registry/Registry.h"
#include "library/text/MultiByte.h"

#include <windows.h>

namespace tabscheck {

namespace {

using Tesk::Registry::GetValue;

constexpr const char* kDomainSettings = "Domain Settings";
constexpr const char* kHosts = "SOFTWARE\\Autodesk\\AutoCAD";
constexpr const char* kApplication = "Applications\\ZavikMDITabs";
constexpr DWORD kLongestName = 256;
constexpr DWORD kAtStart = 2, kDisabled = 16;  // of LOADCTRLS

std::string textOf(HKEY root, const std::string& sKey, const char* sName)
{
    CString sText;
    GetValue(root, sKey.c_str(), sName, sText);
    return sText.GetString();
}

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

// Why an entry loads nothing; empty when it does, or is not there.
std::string whyNothing(HKEY root, const std::string& sPath)
{
    if (!Tesk::Registry::CKey(root, sPath.c_str(), false))
        return {};
    const std::string sLoader = textOf(root, sPath, "LOADER");
    DWORD dwControls = kAtStart;
    GetValue(root, sPath.c_str(), "LOADCTRLS", dwControls);
    if (sLoader.empty())
        return "it has no LOADER, so the host loads nothing";
    if ((dwControls & kDisabled) != 0)
        return "its LOADCTRLS has 16, so the host does not load the module";
    if (sLoader.find('"') != std::string::npos)
        return "its LOADER has quotes in it, so the host finds no such file: " + sLoader;
    if (!Tesk::fileExists(sLoader.c_str()))
        return "its LOADER names " + quoted(sLoader) + ", which is not there";
    const bool missed = root == HKEY_CURRENT_USER && (dwControls & kAtStart) == 0;
    return missed ? "its LOADCTRLS lacks 2, so the host does not load the module at its start" : "";
}

void checkStamp(std::vector<Problem>& problems)
{
    const std::string sKey = Tesk::Registry::GetRemoteConfigurableKey(nullptr).GetString(), sStamps = sKey + "\\Stamps";
    const std::string sMachine = textOf(HKEY_LOCAL_MACHINE, sKey, kDomainSettings);
    const std::string sStamp = textOf(HKEY_LOCAL_MACHINE, sStamps, kDomainSettings);
    const std::string sUser = textOf(HKEY_CURRENT_USER, sKey, kDomainSettings);
    if (sMachine.empty() || sMachine == sUser ||
        (!sStamp.empty() && sStamp != textOf(HKEY_CURRENT_USER, sStamps, kDomainSettings)))
        return;
    const std::string sReason = sStamp.empty()
                                    ? "its sub-key Stamps has no stamp for it"
                                    : "this user has its stamp " + quoted(sStamp) + " and yet " + quoted(sUser);
    problems.push_back(problemOf("domain-stamp", "HKEY_LOCAL_MACHINE\\" + sKey, {sReason}));
}

}  // namespace

std::vector<DomainFolder> findDomainFolders(std::vector<Problem>& problems)
{
    std::vector<DomainFolder> folders;
    for (const auto& [sFolder, sKey] : Tesk::getDomainSettingsCandidates()) {
        const std::string sPath = Tesk::fullPath(sFolder.GetString());
        const bool found = Tesk::folderExists(sFolder);
        const Tesk::CPathParts parts(Tesk::withoutBackslash(sPath));
        folders.push_back({sPath, found, sKey.GetString()});
        const bool there = ::GetFileAttributesA(sPath.c_str()) != INVALID_FILE_ATTRIBUTES;
        const std::string sWhere = sKey.IsEmpty() ? sPath : sKey.GetString();
        if (!found && !sFolder.IsEmpty() && (!sKey.IsEmpty() || there))
            problems.push_back(
                problemOf("domain-absent", sWhere, {sPath, there ? "is no folder that may be read" : "is not there"}));
        else if (found && !sKey.IsEmpty() && Tesk::MultiByte::equalNoCase(parts.fileName(), "support"))
            problems.push_back(problemOf("domain-deep", sWhere, {parts.parent()}));
    }
    checkStamp(problems);
    return folders;
}

void checkLoadEntries(std::vector<Problem>& problems)
{
    for (const std::string& sRelease : subkeys(kHosts)) {
        const std::string sReleasePath = std::string(kHosts) + "\\" + sRelease;
        for (const std::string& sProduct : subkeys(sReleasePath)) {
            const std::string sPath = sReleasePath + "\\" + sProduct + "\\" + kApplication;
            const std::string sMachine = textOf(HKEY_LOCAL_MACHINE, sPath, "LOADER");
            const Tesk::Registry::CKey ofUser(HKEY_CURRENT_USER, sPath.c_str(), false);
            const bool user = ofUser && !sMachine.empty();
            const std::string sUser = textOf(HKEY_CURRENT_USER, sPath, "LOADER");
            std::string sText = whyNothing(user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, sPath);
            if (sText.empty() && user && !Tesk::MultiByte::equalNoCase(sUser, sMachine))
                sText = "the host loads " + quoted(sUser) + " and not " + quoted(sMachine);
            if (!sText.empty())
                problems.push_back(problemOf("load-entry",
                                             (user ? "HKEY_CURRENT_USER\\" : "HKEY_LOCAL_MACHINE\\") + sPath,
                                             {(user ? "this user's entry hides the machine's: " : "") + sText}));
        }
    }
}

}  // namespace tabscheck
