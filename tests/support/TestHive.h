#pragma once

// A part of the registry, the current user's unless told otherwise, redirected to an
// empty place of the process's own until the end of the scope.

#include <windows.h>

#include <string>

class CTestHive {
public:
    explicit CTestHive(HKEY hkRoot = HKEY_CURRENT_USER);
    ~CTestHive();
    CTestHive(const CTestHive&) = delete;
    CTestHive& operator=(const CTestHive&) = delete;

    // Values of the module's key. get answers -1 for one that is not there or no number.
    void set(const char* sName, DWORD dwValue, DWORD dwType = REG_DWORD) const;
    long long get(const char* sName) const;
    // Nobody may write the module's key any more.
    void protect() const;

private:
    HKEY m_hkRoot;
    HKEY m_hkPlace = nullptr;
    std::string m_sPlace;
};
