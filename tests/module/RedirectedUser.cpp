#include "RedirectedUser.h"

#include <string>

namespace {

constexpr const char* kModuleKey = "Software\\Zavik\\ZavikMDITabs";

std::string testKey() { return "ZavikMDITabs tests\\" + std::to_string(::GetCurrentProcessId()); }

void deleteTree(HKEY root, const std::string& path)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return;
    char name[256];
    DWORD length = sizeof name;
    while (::RegEnumKeyExA(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
        deleteTree(key, name);
        length = sizeof name;
    }
    ::RegCloseKey(key);
    ::RegDeleteKeyA(root, path.c_str());
}

// Everyone, or nobody, may change the key; everyone may read it.
void setWritable(HKEY root, bool writable)
{
    HKEY key = nullptr;
    if (::RegOpenKeyExA(root, kModuleKey, 0, WRITE_DAC, &key) != ERROR_SUCCESS)
        return;
    SID_IDENTIFIER_AUTHORITY world = {SECURITY_WORLD_SID_AUTHORITY};
    PSID everyone = nullptr;
    ::AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everyone);
    union {
        ACL list;
        DWORD space[64];
    } acl;
    ::InitializeAcl(&acl.list, sizeof acl, ACL_REVISION);
    ::AddAccessAllowedAce(&acl.list, ACL_REVISION,
                          writable ? KEY_ALL_ACCESS : KEY_READ | READ_CONTROL | WRITE_DAC | DELETE, everyone);
    SECURITY_DESCRIPTOR descriptor;
    ::InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    ::SetSecurityDescriptorDacl(&descriptor, TRUE, &acl.list, FALSE);
    ::RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor);
    ::FreeSid(everyone);
    ::RegCloseKey(key);
}

}  // namespace

RedirectedUser::RedirectedUser()
{
    deleteTree(HKEY_CURRENT_USER, testKey());
    ::RegCreateKeyExA(HKEY_CURRENT_USER, testKey().c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key, nullptr);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, m_key);
}

RedirectedUser::~RedirectedUser()
{
    setWritable(m_key, true);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegCloseKey(m_key);
    deleteTree(HKEY_CURRENT_USER, testKey());
}

void RedirectedUser::set(const char* name, DWORD value, DWORD type) const
{
    HKEY key = nullptr;
    ::RegCreateKeyExA(m_key, kModuleKey, 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    ::RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(&value), sizeof value);
    ::RegCloseKey(key);
}

long long RedirectedUser::get(const char* name) const
{
    HKEY key = nullptr;
    if (::RegOpenKeyExA(m_key, kModuleKey, 0, KEY_READ, &key) != ERROR_SUCCESS)
        return -1;
    DWORD value = 0, type = 0, size = sizeof value;
    const LONG result = ::RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
    ::RegCloseKey(key);
    return result == ERROR_SUCCESS && type == REG_DWORD ? static_cast<long long>(value) : -1;
}

void RedirectedUser::protect() const { setWritable(m_key, false); }
