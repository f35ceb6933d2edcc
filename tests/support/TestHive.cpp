#include "tests/support/TestHive.h"

#include <sddl.h>
#include <shlwapi.h>

#include <stdexcept>

namespace {

constexpr char kModuleKey[] = "Software\\Zavik\\ZavikMDITabs";

// Everyone, or nobody, may change the key; everyone may read it.
void setWritable(HKEY hkRoot, bool bWritable)
{
    HKEY hkKey = nullptr;
    if (::RegOpenKeyExA(hkRoot, kModuleKey, 0, WRITE_DAC, &hkKey) != ERROR_SUCCESS)
        return;
    PSECURITY_DESCRIPTOR pDescriptor = nullptr;
    ::ConvertStringSecurityDescriptorToSecurityDescriptorA(bWritable ? "D:(A;;KA;;;WD)" : "D:(A;;KRRCWDSD;;;WD)",
                                                           SDDL_REVISION_1, &pDescriptor, nullptr);
    ::RegSetKeySecurity(hkKey, DACL_SECURITY_INFORMATION, pDescriptor);
    ::LocalFree(pDescriptor);
    ::RegCloseKey(hkKey);
}

}  // namespace

CTestHive::CTestHive(HKEY hkRoot)
    : m_hkRoot(hkRoot), m_sPlace("ZavikMDITabs tests\\" + std::to_string(::GetCurrentProcessId()))
{
    ::SHDeleteKeyA(HKEY_CURRENT_USER, m_sPlace.c_str());
    if (::RegCreateKeyExA(HKEY_CURRENT_USER, m_sPlace.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_hkPlace,
                          nullptr) != ERROR_SUCCESS ||
        ::RegOverridePredefKey(m_hkRoot, m_hkPlace) != ERROR_SUCCESS)
        throw std::runtime_error("the registry cannot be redirected");
}

CTestHive::~CTestHive()
{
    setWritable(m_hkPlace, true);
    ::RegOverridePredefKey(m_hkRoot, nullptr);
    ::RegCloseKey(m_hkPlace);
    ::SHDeleteKeyA(HKEY_CURRENT_USER, m_sPlace.c_str());
}

void CTestHive::set(const char* sName, DWORD dwValue, DWORD dwType) const
{
    ::SHSetValueA(m_hkPlace, kModuleKey, sName, dwType, &dwValue, sizeof dwValue);
}

long long CTestHive::get(const char* sName) const
{
    DWORD dwValue = 0, dwType = 0, dwSize = sizeof dwValue;
    const DWORD dwResult = ::SHGetValueA(m_hkPlace, kModuleKey, sName, &dwType, &dwValue, &dwSize);
    return dwResult == ERROR_SUCCESS && dwType == REG_DWORD ? static_cast<long long>(dwValue) : -1;
}

void CTestHive::protect() const { setWritable(m_hkPlace, false); }
