#pragma once

// The current user's registry, redirected for a test to an empty place of its
// own, which is removed at the end with what other runs left.

#include <windows.h>
#include <doctest/doctest.h>

#include <string>

class CTestHive {
public:
    CTestHive()
    {
        removeTree(HKEY_CURRENT_USER, kPlace);
        REQUIRE(::RegCreateKeyExA(HKEY_CURRENT_USER, kPlace, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_hkPlace,
                                  nullptr) == ERROR_SUCCESS);
        REQUIRE(::RegOverridePredefKey(HKEY_CURRENT_USER, m_hkPlace) == ERROR_SUCCESS);
    }
    ~CTestHive()
    {
        ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        ::RegCloseKey(m_hkPlace);
        removeTree(HKEY_CURRENT_USER, kPlace);
    }
    CTestHive(const CTestHive&) = delete;
    CTestHive& operator=(const CTestHive&) = delete;

private:
    static constexpr char kPlace[] = "Software\\ZavikMDITabs unit tests";

    static void removeTree(HKEY hkRoot, const std::string& sPath)
    {
        HKEY hkKey;
        if (::RegOpenKeyExA(hkRoot, sPath.c_str(), 0, KEY_ALL_ACCESS, &hkKey) != ERROR_SUCCESS)
            return;
        char sName[256];
        while (::RegEnumKeyA(hkKey, 0, sName, sizeof sName) == ERROR_SUCCESS)
            removeTree(hkKey, sName);
        ::RegCloseKey(hkKey);
        ::RegDeleteKeyA(hkRoot, sPath.c_str());
    }

    HKEY m_hkPlace = nullptr;
};
