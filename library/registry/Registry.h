#pragma once

// Typed registry reads and writes, strict about the stored type.
//
// No call raises; each says whether it succeeded, and a failed read leaves its
// output as it was. Value names, sub-keys and strings are narrow.

#include "library/diagnostics/Prerelease.h"
#include "mfc/afx.h"

#include <windows.h>

#include <type_traits>
#include <vector>

namespace Tesk::Registry {

// ---- on an open key

// For reading, the key must exist; for writing, it is created with its parents.
// The caller closes the key (CKey does).
bool OpenKey(HKEY hkRoot, const char* sSubKey, HKEY& hkRegistryKey, bool bWrite);

// REG_DWORD of at most four bytes.
bool ReadValue(HKEY hkRegistryKey, const char* sName, DWORD& dwValue);

// REG_DWORD; true only for exactly 1.
bool ReadValue(HKEY hkRegistryKey, const char* sName, bool& bValue);

// REG_SZ or REG_EXPAND_SZ; environment references stay as they are.
bool ReadValue(HKEY hkRegistryKey, const char* sName, CString& sValue);

// REG_MULTI_SZ; appends. The list ends at an empty string that is not the
// first; a piece that no zero byte ends does not count.
bool ReadValue(HKEY hkRegistryKey, const char* sName, std::vector<CString>& vValues);

// A value without a name may only be a string (asserted; the write goes ahead).
bool WriteValue(HKEY hkRegistryKey, const char* sName, DWORD dwValue, DWORD dwType);
bool WriteValue(HKEY hkRegistryKey, const char* sName, bool bValue, DWORD dwType);
bool WriteValue(HKEY hkRegistryKey, const char* sName, const char* sValue, DWORD dwType);

// ---- the shell and the application's own key

// The icon that the shell shows for ".ext"; no file of that name need exist.
// The caller owns the icon.
bool IconFromExtension(const char* sExtension, HICON& hIcon, bool bSmall);

// "Software\Zavik\<application>\Remote Configurable"; null or empty stands for
// the installation's name, else the name given to initialiseLibrary.
CString GetRemoteConfigurableKey(const char* sApplication = nullptr);

// ---- on a root key and a path: open, read or write one value, close

// An open key that closes itself; a failure to close is asserted.
class CKey {
public:
    CKey(HKEY hkRoot, const char* sSubKey, bool bWrite) { OpenKey(hkRoot, sSubKey, m_hkRegistryKey, bWrite); }
    CKey(CKey&& other) noexcept : m_hkRegistryKey(other.m_hkRegistryKey) { other.m_hkRegistryKey = nullptr; }
    CKey& operator=(CKey&&) = delete;
    ~CKey()
    {
        if (m_hkRegistryKey)
            TESK_VERIFY_TEXT(::RegCloseKey(m_hkRegistryKey) == ERROR_SUCCESS,
                             "RegCloseKey(hkRegistryKey) == ERROR_SUCCESS");
    }
    explicit operator bool() const { return m_hkRegistryKey != nullptr; }
    HKEY get() const { return m_hkRegistryKey; }

private:
    HKEY m_hkRegistryKey = nullptr;
};

// T is DWORD, bool, CString or std::vector<CString>.
template <class T>
inline bool GetValue(HKEY hkRoot, const char* sSubKey, const char* sName, T& value)
{
    const CKey key(hkRoot, sSubKey, false);
    return key && ReadValue(key.get(), sName, value);
}

// T is DWORD, bool, CString or const char*.
template <class T>
inline bool SetValue(HKEY hkRoot, const char* sSubKey, const char* sName, T value)
{
    const CKey key(hkRoot, sSubKey, true);
    return key && WriteValue(key.get(), sName, value, std::is_arithmetic_v<T> ? REG_DWORD : REG_SZ);
}

}  // namespace Tesk::Registry
