#include "library/files/SupportFileLocator.h"

#include "library/diagnostics/LibraryState.h"
#include "library/diagnostics/Prerelease.h"
#include "library/drawing/ARXVariable.h"
#include "library/files/DomainSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "library/threads/CriticalSection.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>
#include <stdlib.h>

#include <map>
#include <string>
#include <string_view>

namespace Tesk {

namespace {

std::string readSpecialFolder(int iFolder)
{
    char sPath[MAX_PATH] = "";
    bool bValid = false;
    ITEMIDLIST* pList = nullptr;
    if (SUCCEEDED(::SHGetSpecialFolderLocation(nullptr, iFolder, &pList)) && pList) {
        bValid = ::SHGetPathFromIDListA(pList, sPath) != FALSE;
        ::CoTaskMemFree(pList);
    }
    TESK_ASSERT_TEXT(bValid, "bValid && _T(\"Unable to obtain shell special folder\")");
    return bValid ? sPath : "";
}

// Paths that are looked up once. A look-up may report, and the reports of any thread ask
// for paths: no lock is held meanwhile.
template <class Key>
class CCache {
public:
    explicit CCache(std::size_t most) : m_most(most) {}

    template <class Lookup>
    std::string get(const Key& key, const Lookup& lookup)
    {
        {
            const CLock lock(m_section);
            const auto it = m_mapPaths.find(key);
            if (it != m_mapPaths.end())
                return it->second;
        }
        std::string sPath = lookup(key);
        const CLock lock(m_section);
        if (m_mapPaths.size() >= m_most)
            m_mapPaths.clear();
        if (!sPath.empty())
            m_mapPaths[key] = sPath;
        return sPath;
    }

    void clear()
    {
        const CLock lock(m_section);
        m_mapPaths.clear();
    }

private:
    const std::size_t m_most;
    CCriticalSection m_section;
    std::map<Key, std::string> m_mapPaths;
};

CCache<int> g_specialFolders(64);
CCache<HMODULE> g_moduleFiles(1);  // the present one's alone: a handle may come again
CCache<std::string> g_longFolders(1);
// Who only looks sees these as they were at first.
CCache<int> g_seenLocations(64);
CCache<std::string> g_seenProjects(1024);

std::string g_sStandIn;  // for the module's file; empty for the module itself

// The shell takes its time; the folders stay what they are while the process runs.
// The user's own are made when they are not there.
std::string specialFolder(int iFolder)
{
    const bool bOwn = iFolder == CSIDL_APPDATA || iFolder == CSIDL_LOCAL_APPDATA;
    return g_specialFolders.get(bOwn && !isLookOnly() ? iFolder | CSIDL_FLAG_CREATE : iFolder, readSpecialFolder);
}

// The module's file, or the program's while the library has no module. The handle is read
// directly, since an assertion report asks for this path too.
std::string moduleFile()
{
    if (isLookOnly())
        return g_sStandIn;
    if (!G_bLibraryInitialised)
        g_moduleFiles.clear();
    return g_moduleFiles.get(G_hCurrentModule, [](HMODULE hModule) -> std::string {
        char sPath[MAX_PATH * 4] = "";
        return ::GetModuleFileNameA(hModule, sPath, sizeof sPath) < sizeof sPath ? sPath : "";
    });
}

// What a call of the system writes, which takes where to and how much room there is, and
// gives the length, or the room that it wants; empty when it fails.
template <class Call>
std::string written(Call call)
{
    std::string sText(MAX_PATH, '\0');
    for (;;) {
        const auto size = static_cast<DWORD>(sText.size());
        const DWORD length = call(sText.data(), size);
        sText.resize(length);
        if (length < size)
            return sText;
    }
}

// The long form of a path; the path itself when there is none.
std::string longForm(const std::string& sPath)
{
    const std::string sLong =
        written([&sPath](char* sOut, DWORD size) { return ::GetLongPathNameA(sPath.c_str(), sOut, size); });
    return sLong.empty() ? sPath : sLong;
}

std::string applicationRoot()
{
    constexpr std::string_view sComponents = "Components\\";
    const std::string sProgram = getLocation(LOCATION_DIR_PROGRAM).GetString();
    // The long form takes reading every folder on the way.
    const std::string sLong = g_longFolders.get(sProgram, longForm);
    if (sLong.size() < sComponents.size())
        return sProgram;
    const std::string_view sTail = std::string_view(sLong).substr(sLong.size() - sComponents.size());
    return MultiByte::equalNoCase(sTail, sComponents) ? sProgram + "..\\" : sProgram;
}

std::string drawingFolder()
{
    try {
        return CARXVariable("DWGPREFIX").readString().GetString();
    } catch (CException* e) {
        e->Delete();
    }
    return {};
}

// Folder (with its backslash) and name; empty when the folder is.
std::string below(int iFolder, std::string_view sName)
{
    std::string sFolder = getLocation(iFolder).GetString();
    if (!sFolder.empty())
        sFolder += sName;
    return sFolder;
}

std::string diagnosticsLog()
{
    const std::string sModule = longForm(getLocation(LOCATION_FILE_MODULE).GetString());
    return below(LOCATION_DIR_TEMP, "Zavik Diagnostics\\" + CPathParts(sModule).m_sBase + ".log");
}

constexpr struct {
    int iWhere;
    int iFolder;  // of the shell
} kSpecial[] = {
    {LOCATION_DIR_USERAPPDATA, CSIDL_APPDATA},
    {LOCATION_DIR_USERLOCALAPPDATA, CSIDL_LOCAL_APPDATA},
    {LOCATION_DIR_WINDOWS, CSIDL_WINDOWS},
    {LOCATION_DIR_WINDOWS_SYSTEM, CSIDL_SYSTEM},
    {LOCATION_DIR_WINDOWS_COMMONFILES, CSIDL_PROGRAM_FILES_COMMON},
    {LOCATION_DIR_PROGRAMFILES, CSIDL_PROGRAM_FILES},
};

constexpr struct {
    int iWhere;
    int iFolder;  // a location
    const char* sName;
} kBelow[] = {
    {LOCATION_DIR_HELPDOCS, LOCATION_DIR_APPLICATION_ROOT, "HelpDocs"},
    {LOCATION_DIR_USERZAVIKDATA, LOCATION_DIR_USERAPPDATA, "Zavik"},
    {LOCATION_DIR_USERLOCALZAVIKDATA, LOCATION_DIR_USERLOCALAPPDATA, "Zavik"},
    {LOCATION_DIR_USERPLENDADATA, LOCATION_DIR_USERAPPDATA, "Draftrix"},
    {LOCATION_DIR_COMMONZAVIKFILES, LOCATION_DIR_WINDOWS_COMMONFILES, "Zavik"},
    {LOCATION_DIR_PROJECT_DWG_SETTINGS, LOCATION_DIR_PROJECT_DWG_ROOT, "Settings"},
    {LOCATION_FILE_HELP, LOCATION_DIR_HELPDOCS, "Draftrix.hlp"},
    {LOCATION_FILE_DOMAIN_SETTINGS, LOCATION_DIR_DOMAIN_SETTINGS, "DomainSettings.txt"},
    {LOCATION_FILE_STANDARD_SETTINGS, LOCATION_DIR_APPLICATION_ROOT, "support\\StandardSettings.txt"},
    {LOCATION_FILE_PROJECT_SETTINGS, LOCATION_DIR_PROJECT_DWG_ROOT, kProjectSettings},
};

std::string rawLocation(int iWhere)
{
    for (const auto& [iLocation, iFolder] : kSpecial)
        if (iLocation == iWhere)
            return specialFolder(iFolder);
    for (const auto& [iLocation, iFolder, sName] : kBelow)
        if (iLocation == iWhere)
            return below(iFolder, sName);
    switch (iWhere) {
    case LOCATION_DIR_PROGRAM:
        return CPathParts(getLocation(LOCATION_FILE_MODULE).GetString()).parent();
    case LOCATION_DIR_APPLICATION_ROOT:
        return applicationRoot();
    case LOCATION_DIR_DOMAIN_SETTINGS:
        return getDomainSettingsFolder().GetString();
    case LOCATION_DIR_TEMP:
        return getTempFolder().GetString();
    case LOCATION_DIR_DRAWING:
        return drawingFolder();
    case LOCATION_DIR_PROJECT_DWG_ROOT:
        return findProjectFolder(getLocation(LOCATION_DIR_DRAWING)).GetString();
    case LOCATION_FILE_DIAGNOSTICS_LOG:
        return diagnosticsLog();
    case LOCATION_FILE_MODULE:
        return moduleFile();
    default:
        TESK_ASSERT(false);
        return {};
    }
}

std::string readLocation(int iWhere)
{
    std::string sPath = rawLocation(iWhere);
    if (!sPath.empty())
        sPath = fullPath(sPath);
    return iWhere < LOCATION_FILES ? withBackslash(sPath) : sPath;
}

// False when the variable is not set; one that is set may be empty.
bool environment(const char* sName, std::string& sValue)
{
    sValue = written([sName](char* sOut, DWORD size) { return ::GetEnvironmentVariableA(sName, sOut, size); });
    return ::GetEnvironmentVariableA(sName, nullptr, 0) != 0;
}

}  // namespace

std::string fullPath(const std::string& sPath)
{
    const std::string sFull =
        written([&sPath](char* sOut, DWORD size) { return ::GetFullPathNameA(sPath.c_str(), size, sOut, nullptr); });
    return sFull.empty() ? sPath : sFull;
}

void lookOnlyAs(const char* sModuleFile) { g_sStandIn = sModuleFile; }

bool isLookOnly() { return !g_sStandIn.empty(); }

CString getLocation(int iWhere)
{
    TESK_ASSERT((iWhere != LOCATION_DIRS) && (iWhere != LOCATION_FILES));
    if (iWhere == LOCATION_DIRS || iWhere == LOCATION_FILES)
        return {};
    return (isLookOnly() ? g_seenLocations.get(iWhere, readLocation) : readLocation(iWhere)).c_str();
}

CString findProjectFolder(const char* sStart)
{
    const auto find = [](const std::string& sFolder) -> std::string {
        return findFolderUpwards(sFolder.c_str(), kProjectSettings).GetString();
    };
    return (isLookOnly() ? g_seenProjects.get(sStart, find) : find(sStart)).c_str();
}

CString getTitleBlockFile(Layer eLayer, const char* sDrawing)
{
    if (eLayer != Layer::Project)
        return getLocation(eLayer == Layer::Domain ? LOCATION_FILE_DOMAIN_SETTINGS : LOCATION_FILE_STANDARD_SETTINGS);
    const CString sFolder = findProjectFolder(CPathParts(sDrawing).parent().c_str());
    return sFolder.IsEmpty() ? sFolder : sFolder + kProjectSettings;
}

CString getTempFolder()
{
    const std::string sSystem = getLocation(LOCATION_DIR_WINDOWS_SYSTEM).GetString();
    std::string sTemp, sTmp;
    const bool bTemp = environment("TEMP", sTemp);
    const bool bTmp = environment("TMP", sTmp);
    if (!bTemp && !bTmp) {
        const std::string sDrive = sSystem.substr(0, 1);
        sTemp = sDrive + ":\\Temp\\";
        sTmp = sDrive + ":\\Tmp\\";
    }
    const std::string aCandidates[] = {sTemp, sTmp, sSystem + "\\Temp\\", sSystem + "\\Tmp\\", "\\"};
    for (const std::string& sCandidate : aCandidates) {
        if (folderExists(sCandidate.c_str()))
            return sCandidate.c_str();
    }
    return {};
}

}  // namespace Tesk
