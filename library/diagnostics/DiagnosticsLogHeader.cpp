#include "library/diagnostics/DiagnosticsLog.h"

#include "library/files/SupportFileLocator.h"
#include "library/registry/Registry.h"

namespace Tesk {

namespace {

constexpr char c_windowsNT[] = "SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
constexpr char c_windows[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
constexpr char c_shellFolders[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr char c_control[] = "SYSTEM\\CurrentControlSet\\Control\\Windows";
constexpr char c_system[] = "HARDWARE\\DESCRIPTION\\System";
constexpr char c_processor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";

class CHeader {
public:
    void add(const CString& sLine) { m_vLines.push_back(sLine); }

    void addTitled(const char* sTitle, const char* sName, const char* sValue)
    {
        CString sLine;
        sLine.Format("%s::%s=%s", sTitle, sName, sValue);
        add(sLine);
    }

    void addValue(const char* sTitle, const char* szSubKey, const char* szName)
    {
        CString sValue;
        if (Registry::GetValue(HKEY_LOCAL_MACHINE, szSubKey, szName, sValue))
            addTitled(sTitle, szName, sValue);
    }

    void addElements(const char* sTitle, const char* szSubKey, const char* szName)
    {
        std::vector<CString> vValues;
        if (!Registry::GetValue(HKEY_LOCAL_MACHINE, szSubKey, szName, vValues))
            return;
        for (size_t i = 0; i < vValues.size(); ++i) {
            CString sLine;
            sLine.Format("%s::%s (%d)=%s", sTitle, szName, static_cast<int>(i), vValues[i].GetString());
            add(sLine);
        }
    }

    void addProcessor()
    {
        DWORD dwSpeed = 0;
        CString sVendor;
        CString sIdentifier;
        if (!Registry::GetValue(HKEY_LOCAL_MACHINE, c_processor, "~MHz", dwSpeed) ||
            !Registry::GetValue(HKEY_LOCAL_MACHINE, c_processor, "VendorIdentifier", sVendor) ||
            !Registry::GetValue(HKEY_LOCAL_MACHINE, c_processor, "Identifier", sIdentifier))
            return;
        CString sLine;
        sLine.Format("Hardware::id= %d MHz, %s, %s", static_cast<int>(dwSpeed), sVendor.GetString(),
                     sIdentifier.GetString());
        add(sLine);
    }

    std::vector<CString> m_vLines;
};

CString computerName()
{
    char sName[MAX_COMPUTERNAME_LENGTH + 1] = "";
    DWORD dwSize = sizeof sName;
    return ::GetComputerNameA(sName, &dwSize) ? sName : "Unknown";
}

}  // namespace

std::vector<CString> describeMachine()
{
    CHeader header;
    header.add(CDiagnosticsLog::now("Diagnostics started: %c"));
    header.add("::HostName=" + computerName());
    for (const char* szName : {"ProductName", "CurrentVersion", "CSDVersion", "CurrentBuildNumber"})
        header.addValue("OS", c_windowsNT, szName);
    header.addValue("Folders", c_shellFolders, "Common AppData");
    header.addValue("Folders", c_shellFolders, "Common Desktop");
    header.addValue("Folders", c_windowsNT, "SystemRoot");
    header.addValue("Folders", c_control, "SystemDirectory");
    header.addValue("Folders", c_windows, "ProgramFilesDir");
    header.addValue("Folders", c_windows, "CommonFilesDir");
    header.addValue("Hardware", c_system, "SystemBiosDate");
    header.addElements("Hardware", c_system, "SystemBiosVersion");
    header.addProcessor();
    header.addTitled("PathLocation", "LOCATION_FILE_MODULE", getLocation(LOCATION_FILE_MODULE));
    header.addTitled("PathLocation", "LOCATION_DIR_PROGRAM", getLocation(LOCATION_DIR_PROGRAM));
    header.addTitled("PathLocation", "LOCATION_DIR_USERZAVIKDATA", getLocation(LOCATION_DIR_USERZAVIKDATA));
    header.add(":-------------------------");
    header.add(":");
    return header.m_vLines;
}

}  // namespace Tesk
