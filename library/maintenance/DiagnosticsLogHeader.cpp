#include "library/maintenance/DiagnosticsLog.h"

#include "library/files/SupportFileLocator.h"
#include "library/registry/Registry.h"
#include "library/system/ComputerName.h"

#include <string>

namespace Tesk {

namespace {

constexpr char kWindowsNT[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr char kWindows[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
constexpr char kShellFolders[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr char kControl[] = "SYSTEM\\CurrentControlSet\\Control\\Windows";
constexpr char kSystem[] = "HARDWARE\\DESCRIPTION\\System";
constexpr char kProcessor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";

// The machine's values that are texts, in the order of their lines.
constexpr const char* kValues[][3] = {
    {"OS", kWindowsNT, "ProductName"},
    {"OS", kWindowsNT, "CurrentVersion"},
    {"OS", kWindowsNT, "CSDVersion"},
    {"OS", kWindowsNT, "CurrentBuildNumber"},
    {"Folders", kShellFolders, "Common AppData"},
    {"Folders", kShellFolders, "Common Desktop"},
    {"Folders", kWindowsNT, "SystemRoot"},
    {"Folders", kControl, "SystemDirectory"},
    {"Folders", kWindows, "ProgramFilesDir"},
    {"Folders", kWindows, "CommonFilesDir"},
    {"Hardware", kSystem, "SystemBiosDate"},
};

template <class T>
bool read(const char* sSubKey, const char* sName, T& value)
{
    return Registry::GetValue(HKEY_LOCAL_MACHINE, sSubKey, sName, value);
}

template <class... Arguments>
CString line(const char* sFormat, Arguments... arguments)
{
    CString sLine;
    sLine.Format(sFormat, arguments...);
    return sLine;
}

CString titled(const char* sTitle, const char* sName, const CString& sValue)
{
    return line("%s::%s=%s", sTitle, sName, sValue.GetString());
}

void addProcessor(std::vector<CString>& vLines)
{
    DWORD dwSpeed = 0;
    CString sVendor, sIdentifier;
    if (read(kProcessor, "~MHz", dwSpeed) && read(kProcessor, "VendorIdentifier", sVendor) &&
        read(kProcessor, "Identifier", sIdentifier))
        vLines.push_back(line("Hardware::id= %d MHz, %s, %s", static_cast<int>(dwSpeed), sVendor.GetString(),
                              sIdentifier.GetString()));
}

}  // namespace

std::vector<CString> describeMachine()
{
    const std::string sComputer = getComputerName();
    std::vector<CString> vLines = {CDiagnosticsLog::now("Diagnostics started: %c"),
                                   titled("", "HostName", sComputer.empty() ? "Unknown" : sComputer.c_str())};
    for (const auto& [sTitle, sSubKey, sName] : kValues)
        if (CString sValue; read(sSubKey, sName, sValue))
            vLines.push_back(titled(sTitle, sName, sValue));
    std::vector<CString> vBios;
    read(kSystem, "SystemBiosVersion", vBios);
    for (std::size_t i = 0; i < vBios.size(); ++i)
        vLines.push_back(line("Hardware::SystemBiosVersion (%d)=%s", static_cast<int>(i), vBios[i].GetString()));
    addProcessor(vLines);
    vLines.push_back(titled("PathLocation", "LOCATION_FILE_MODULE", getLocation(LOCATION_FILE_MODULE)));
    vLines.push_back(titled("PathLocation", "LOCATION_DIR_PROGRAM", getLocation(LOCATION_DIR_PROGRAM)));
    vLines.push_back(titled("PathLocation", "LOCATION_DIR_USERZAVIKDATA", getLocation(LOCATION_DIR_USERZAVIKDATA)));
    vLines.insert(vLines.end(), {":-------------------------", ":"});
    return vLines;
}

}  // namespace Tesk
