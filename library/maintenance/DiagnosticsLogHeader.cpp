#include "library/maintenance/DiagnosticsLog.h"

#include "library/diagnostics/VersionBlock.h"
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

class CHeader {
public:
    void add(const CString& sLine) { m_vLines.push_back(sLine); }

    void addTitled(const char* sTitle, const char* sName, const char* sValue)
    {
        CString sLine;
        sLine.Format("%s::%s=%s", sTitle, sName, sValue);
        add(sLine);
    }

    void addValue(const char* sTitle, const char* sSubKey, const char* sName)
    {
        CString sValue;
        if (Registry::GetValue(HKEY_LOCAL_MACHINE, sSubKey, sName, sValue))
            addTitled(sTitle, sName, sValue);
    }

    void addElements(const char* sTitle, const char* sSubKey, const char* sName)
    {
        std::vector<CString> vValues;
        if (!Registry::GetValue(HKEY_LOCAL_MACHINE, sSubKey, sName, vValues))
            return;
        for (std::size_t i = 0; i < vValues.size(); ++i) {
            CString sLine;
            sLine.Format("%s::%s (%d)=%s", sTitle, sName, static_cast<int>(i), vValues[i].GetString());
            add(sLine);
        }
    }

    void addProcessor()
    {
        DWORD dwSpeed = 0;
        CString sVendor;
        CString sIdentifier;
        if (!Registry::GetValue(HKEY_LOCAL_MACHINE, kProcessor, "~MHz", dwSpeed) ||
            !Registry::GetValue(HKEY_LOCAL_MACHINE, kProcessor, "VendorIdentifier", sVendor) ||
            !Registry::GetValue(HKEY_LOCAL_MACHINE, kProcessor, "Identifier", sIdentifier))
            return;
        CString sLine;
        sLine.Format("Hardware::id= %d MHz, %s, %s", static_cast<int>(dwSpeed), sVendor.GetString(),
                     sIdentifier.GetString());
        add(sLine);
    }

    std::vector<CString> m_vLines;
};

}  // namespace

std::vector<CString> describeMachine()
{
    CHeader header;
    header.add(CDiagnosticsLog::now("Diagnostics started: %c"));
    const std::string sComputer = getComputerName();
    header.add(CString("::HostName=") + (sComputer.empty() ? "Unknown" : sComputer.c_str()));
    for (const char* sName : {"ProductName", "CurrentVersion", "CSDVersion", "CurrentBuildNumber"})
        header.addValue("OS", kWindowsNT, sName);
    header.addValue("Folders", kShellFolders, "Common AppData");
    header.addValue("Folders", kShellFolders, "Common Desktop");
    header.addValue("Folders", kWindowsNT, "SystemRoot");
    header.addValue("Folders", kControl, "SystemDirectory");
    header.addValue("Folders", kWindows, "ProgramFilesDir");
    header.addValue("Folders", kWindows, "CommonFilesDir");
    header.addValue("Hardware", kSystem, "SystemBiosDate");
    header.addElements("Hardware", kSystem, "SystemBiosVersion");
    header.addProcessor();
    header.addTitled("PathLocation", "LOCATION_FILE_MODULE", getLocation(LOCATION_FILE_MODULE));
    header.addTitled("PathLocation", "LOCATION_DIR_PROGRAM", getLocation(LOCATION_DIR_PROGRAM));
    header.addTitled("PathLocation", "LOCATION_DIR_USERZAVIKDATA", getLocation(LOCATION_DIR_USERZAVIKDATA));
    header.add(":-------------------------");
    header.add(":");
    header.addTitled("Module", "FileVersion", CVersionBlock::getFileVersion());
    header.addTitled("Module", "Comments", CVersionBlock::getComments());
    return header.m_vLines;
}

}  // namespace Tesk
