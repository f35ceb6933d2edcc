#include "library/files/DomainSettings.h"

#include "library/diagnostics/Maintenance.h"
#include "library/diagnostics/Prerelease.h"
#include "library/files/FileSearch.h"
#include "library/files/SupportFileLocator.h"
#include "library/registry/Registry.h"

#include <vector>

namespace Tesk {

namespace {

// An administrator's new value, stamped in the machine's branch, reaches every user once.
void propagateDomainSettings(const char* sKey, const char* sStampsKey, const char* sName)
{
    CString sMachine, sMachineStamp, sUserStamp;
    if (!Registry::GetValue(HKEY_LOCAL_MACHINE, sKey, sName, sMachine) ||
        !Registry::GetValue(HKEY_LOCAL_MACHINE, sStampsKey, sName, sMachineStamp))
        return;
    if (Registry::GetValue(HKEY_CURRENT_USER, sStampsKey, sName, sUserStamp) && sUserStamp == sMachineStamp)
        return;
    Registry::SetValue(HKEY_CURRENT_USER, sKey, sName, sMachine);
    Registry::SetValue(HKEY_CURRENT_USER, sStampsKey, sName, sMachineStamp);
}

bool registeredDomainSettings(CString& sFolder)
{
    const CString sKey = Registry::GetRemoteConfigurableKey(nullptr);
    const CString sStampsKey = sKey + "\\Stamps";
    propagateDomainSettings(sKey, sStampsKey, "Domain Settings");
    return Registry::GetValue(HKEY_CURRENT_USER, sKey, "Domain Settings", sFolder);
}

}  // namespace

CString getDomainSettingsFolder()
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

    int iIndex = 0;
    for (const CString& sCandidate : vecCandidates) {
        const bool bFound = folderExists(sCandidate);
        TESK_TRACE("Testing for DomainSettings: %d: \"%s\", bFound = %d\n", iIndex++, sCandidate.GetString(),
                   bFound ? 1 : 0);
        if (bFound)
            return sCandidate;
    }
    return vecCandidates.back();
}

}  // namespace Tesk
