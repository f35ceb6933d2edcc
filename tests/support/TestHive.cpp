#include "tests/support/TestHive.h"

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
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    PSID pEveryone = nullptr;
    ::AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &pEveryone);
    union {
        ACL list;
        DWORD space[64];
    } acl;
    ::InitializeAcl(&acl.list, sizeof acl, ACL_REVISION);
    ::AddAccessAllowedAce(&acl.list, ACL_REVISION,
                          bWritable ? KEY_ALL_ACCESS : KEY_READ | READ_CONTROL | WRITE_DAC | DELETE, pEveryone);
    SECURITY_DESCRIPTOR descriptor;
    ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&descriptor, TRUE, &acl.list, FALSE);
    ::RegSetKeySecurity(hkKey, DACL_SECURITY_INFORMATION, &descriptor);
    ::FreeSid(pEveryone);
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
