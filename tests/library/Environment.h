// An environment variable set, or with null removed, for the duration of a scope.
#pragma once

#include <windows.h>

class CEnvironment {
public:
    CEnvironment(const char* szName, const char* szValue) : m_szName(szName)
    {
        m_bSet = ::GetEnvironmentVariableA(szName, m_szPrevious, sizeof m_szPrevious) != 0;
        ::SetEnvironmentVariableA(szName, szValue);
    }
    ~CEnvironment() { ::SetEnvironmentVariableA(m_szName, m_bSet ? m_szPrevious : nullptr); }
    CEnvironment(const CEnvironment&) = delete;
    CEnvironment& operator=(const CEnvironment&) = delete;

private:
    const char* m_szName;
    char m_szPrevious[1024];
    bool m_bSet;
};
