#include "library/registry/Registry.h"

#include "library/diagnostics/LibraryState.h"

#include <shellapi.h>

#include <cstring>
#include <string>

namespace Tesk::Registry {

namespace {

// The bytes of a value of any type. The first question is for its size; asks again while
// the value grows meanwhile.
bool readBytes(HKEY hkRegistryKey, const char* sName, DWORD& dwType, std::string& sBytes)
{
    DWORD dwSize = 0;
    LONG lResult = ERROR_SUCCESS;
    do {
        sBytes.resize(dwSize + 1);
        dwSize = static_cast<DWORD>(sBytes.size());
        lResult =
            ::RegQueryValueExA(hkRegistryKey, sName, nullptr, &dwType, reinterpret_cast<BYTE*>(sBytes.data()), &dwSize);
    } while (lResult == ERROR_MORE_DATA);
    if (lResult != ERROR_SUCCESS)
        return false;
    sBytes.resize(dwSize);
    return true;
}

bool writeBytes(HKEY hkRegistryKey, const char* sName, DWORD dwType, const void* pBytes, std::size_t size)
{
    return ::RegSetValueExA(hkRegistryKey, sName, 0, dwType, static_cast<const BYTE*>(pBytes),
                            static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

}  // namespace

bool OpenKey(HKEY hkRoot, const char* sSubKey, HKEY& hkRegistryKey, bool bWrite)
{
    HKEY hkOpened = nullptr;
    if (bWrite) {
        SECURITY_DESCRIPTOR descriptor;
        if (!::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION))
            return false;
        SECURITY_ATTRIBUTES attributes = {sizeof attributes, &descriptor, FALSE};
        char sClass[] = "";
        if (::RegCreateKeyExA(hkRoot, sSubKey, 0, sClass, REG_OPTION_NON_VOLATILE, KEY_WRITE, &attributes, &hkOpened,
                              nullptr) != ERROR_SUCCESS)
            return false;
    } else if (::RegOpenKeyExA(hkRoot, sSubKey, 0, KEY_READ, &hkOpened) != ERROR_SUCCESS) {
        return false;
    }
    hkRegistryKey = hkOpened;
    return true;
}

bool ReadValue(HKEY hkRegistryKey, const char* sName, DWORD& dwValue)
{
    DWORD dwRead = 0;  // a shorter value fills the low bytes
    DWORD dwType = REG_NONE;
    DWORD dwSize = sizeof dwRead;
    if (::RegQueryValueExA(hkRegistryKey, sName, nullptr, &dwType, reinterpret_cast<BYTE*>(&dwRead), &dwSize) !=
            ERROR_SUCCESS ||
        dwType != REG_DWORD)
        return false;
    dwValue = dwRead;
    return true;
}

bool ReadValue(HKEY hkRegistryKey, const char* sName, bool& bValue)
{
    DWORD dwValue = 0;
    if (!ReadValue(hkRegistryKey, sName, dwValue))
        return false;
    bValue = dwValue == 1;
    return true;
}

bool ReadValue(HKEY hkRegistryKey, const char* sName, CString& sValue)
{
    DWORD dwType = REG_NONE;
    std::string sBytes;
    if (!readBytes(hkRegistryKey, sName, dwType, sBytes) || (dwType != REG_SZ && dwType != REG_EXPAND_SZ))
        return false;
    sValue = sBytes.c_str();  // ends at the first zero byte, or where the data ends
    return true;
}

bool ReadValue(HKEY hkRegistryKey, const char* sName, std::vector<CString>& vValues)
{
    DWORD dwType = REG_NONE;
    std::string sBytes;
    if (!readBytes(hkRegistryKey, sName, dwType, sBytes) || dwType != REG_MULTI_SZ)
        return false;
    std::size_t start = 0;
    for (std::size_t zero; (zero = sBytes.find('\0', start)) != std::string::npos; start = zero + 1) {
        vValues.push_back(CString(sBytes.c_str() + start));
        if (zero + 1 < sBytes.size() && sBytes[zero + 1] == '\0')
            break;
    }
    return true;
}

bool WriteValue(HKEY hkRegistryKey, const char* sName, DWORD dwValue, DWORD dwType)
{
    TESK_ASSERT_TEXT(!CString(sName).IsEmpty() || dwType == REG_SZ,
                     "CString(sValue).IsEmpty() ? (dwType == REG_SZ) : true");
    return writeBytes(hkRegistryKey, sName, dwType, &dwValue, sizeof dwValue);
}

bool WriteValue(HKEY hkRegistryKey, const char* sName, bool bValue, DWORD dwType)
{
    return WriteValue(hkRegistryKey, sName, static_cast<DWORD>(bValue ? 1 : 0), dwType);
}

bool WriteValue(HKEY hkRegistryKey, const char* sName, const char* sValue, DWORD dwType)
{
    return writeBytes(hkRegistryKey, sName, dwType, sValue, std::strlen(sValue) + 1);
}

bool IconFromExtension(const char* sExtension, HICON& hIcon, bool bSmall)
{
    SHFILEINFOA info = {};
    const UINT uFlags = SHGFI_ICON | SHGFI_USEFILEATTRIBUTES | (bSmall ? SHGFI_SMALLICON : SHGFI_LARGEICON);
    if (!::SHGetFileInfoA(sExtension, FILE_ATTRIBUTE_NORMAL, &info, sizeof info, uFlags))
        return false;
    hIcon = info.hIcon;
    return true;
}

CString GetRemoteConfigurableKey(const char* sGiven)
{
    const CString sApplication = sGiven && *sGiven ? CString(sGiven) : getApplicationName();
    return "Software\\Zavik\\" + sApplication + "\\Remote Configurable";
}

}  // namespace Tesk::Registry
