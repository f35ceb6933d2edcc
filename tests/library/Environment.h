#pragma once

// An environment variable set, or with null removed, for the duration of a scope.

#include <windows.h>

class CEnvironment {
public:
    CEnvironment(const char* sName, const char* sValue) : m_szName(sName)
    {
        m_bSet = ::GetEnvironmentVariableA(sName, m_szPrevious, sizeof m_szPrevious) != 0;
        ::SetEnvironmentVariableA(sName, sValue);
    }
    ~CEnvironment() { ::SetEnvironmentVariableA(m_szName, m_bSet ? m_szPrevious : nullptr); }
    CEnvironment(const CEnvironment&) = delete;
    CEnvironment& operator=(const CEnvironment&) = delete;

private:
    const char* m_szName;
    char m_szPrevious[1024];
    bool m_bSet;
};
