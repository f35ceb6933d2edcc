#include "library/files/DomainSettings.h"

#include "library/diagnostics/Maintenance.h"
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

bool registeredDomainSettings(CString& sFolder)
{
    const CString sKey = Registry::GetRemoteConfigurableKey(nullptr);
    const CString sStampsKey = sKey + "\\Stamps";
    CString sMachine, sMachineStamp;
    if (findNewMachineValue(sKey, sStampsKey, sMachine, sMachineStamp)) {
        if (isLookOnly()) {
            sFolder = sMachine;
            return true;
        }
        Registry::SetValue(HKEY_CURRENT_USER, sKey, kValue, sMachine);
        Registry::SetValue(HKEY_CURRENT_USER, sStampsKey, kValue, sMachineStamp);
    }
    return Registry::GetValue(HKEY_CURRENT_USER, sKey, kValue, sFolder);
}

}  // namespace

std::vector<CString> getDomainSettingsCandidates()
{
    std::vector<CString> vecCandidates;
    CString sRegistered;
    if (registeredDomainSettings(sRegistered))
        vecCandidates.push_back(sRegistered);
    if (G_sApplicationName != "Courier Desk")
        vecCandidates.push_back("P:\\Program Files\\Zavik\\DomainSettings");
    const CString sRoot = getLocation(LOCATION_DIR_APPLICATION_ROOT);
    vecCandidates.push_back(sRoot + "..\\DomainSettings");
    vecCandidates.push_back(sRoot + "..\\..\\DomainSettings");
    return vecCandidates;
}

CString getDomainSettingsFolder()
{
    const std::vector<CString> vecCandidates = getDomainSettingsCandidates();
    int iIndex = 0;
    for (const CString& sCandidate : vecCandidates) {
        const bool bFound = folderExists(sCandidate);
        TESK_TRACE("Testing for DomainSettings: %d: \"%s\", bFound = %d\n", iIndex, sCandidate.GetString(),
                   bFound ? 1 : 0);
        if (bFound)
            return sCandidate;
        ++iIndex;
    }
    return vecCandidates.back();
}

}  // namespace Tesk
