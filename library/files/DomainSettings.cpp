#include "library/files/DomainSettings.h"

#include "library/diagnostics/LibraryState.h"
#include "library/diagnostics/Prerelease.h"
#include "library/files/FileSearch.h"
#include "library/files/SupportFileLocator.h"
#include "library/registry/Registry.h"

namespace Tesk {

namespace {

constexpr const char* kValue = "Domain Settings";

// An administrator's value, stamped in the machine's branch, that the user has not had yet.
bool findNewMachineValue(const char* sKey, const char* sStampsKey, CString& sMachine, CString& sMachineStamp)
{
    CString sUserStamp;
    return Registry::GetValue(HKEY_LOCAL_MACHINE, sKey, kValue, sMachine) &&
           Registry::GetValue(HKEY_LOCAL_MACHINE, sStampsKey, kValue, sMachineStamp) &&
           (!Registry::GetValue(HKEY_CURRENT_USER, sStampsKey, kValue, sUserStamp) || sUserStamp != sMachineStamp);
}

bool registeredDomainSettings(CDomainCandidate& candidate)
{
    const CString sKey = Registry::GetRemoteConfigurableKey(nullptr);
    const CString sStampsKey = sKey + "\\Stamps";
    CString sMachine, sMachineStamp;
    if (findNewMachineValue(sKey, sStampsKey, sMachine, sMachineStamp)) {
        if (isLookOnly()) {
            candidate = {sMachine, "HKEY_LOCAL_MACHINE\\" + sKey};
            return true;
        }
        Registry::SetValue(HKEY_CURRENT_USER, sKey, kValue, sMachine);
        Registry::SetValue(HKEY_CURRENT_USER, sStampsKey, kValue, sMachineStamp);
    }
    candidate.m_sKey = "HKEY_CURRENT_USER\\" + sKey;
    return Registry::GetValue(HKEY_CURRENT_USER, sKey, kValue, candidate.m_sFolder);
}

}  // namespace

std::vector<CDomainCandidate> getDomainSettingsCandidates()
{
    std::vector<CDomainCandidate> vecCandidates;
    CDomainCandidate registered;
    if (registeredDomainSettings(registered))
        vecCandidates.push_back(registered);
    if (G_sApplicationName != "Courier Desk")
        vecCandidates.push_back({"P:\\Program Files\\Zavik\\DomainSettings", ""});
    const CString sRoot = getLocation(LOCATION_DIR_APPLICATION_ROOT);
    vecCandidates.push_back({sRoot + "..\\DomainSettings", ""});
    vecCandidates.push_back({sRoot + "..\\..\\DomainSettings", ""});
    return vecCandidates;
}

CString getDomainSettingsFolder()
{
    const std::vector<CDomainCandidate> vecCandidates = getDomainSettingsCandidates();
    int iIndex = 0;
    for (const auto& [sCandidate, sKey] : vecCandidates) {
        const bool bFound = folderExists(sCandidate);
        TESK_TRACE("Testing for DomainSettings: %d: \"%s\", bFound = %d\n", iIndex, sCandidate.GetString(),
                   bFound ? 1 : 0);
        if (bFound)
            return sCandidate;
        ++iIndex;
    }
    return vecCandidates.back().m_sFolder;
}

}  // namespace Tesk
