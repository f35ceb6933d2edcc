#pragma once

// A lock that one thread may take more than once, and the scope that holds it.

#include <windows.h>

namespace Tesk {

class CCriticalSection {
public:
    CCriticalSection() { ::InitializeCriticalSection(&m_section); }
    ~CCriticalSection() { ::DeleteCriticalSection(&m_section); }
    CCriticalSection(const CCriticalSection&) = delete;
    CCriticalSection& operator=(const CCriticalSection&) = delete;

private:
    friend class CLock;
    CRITICAL_SECTION m_section;
};

class CLock {
public:
    explicit CLock(CCriticalSection& section) : m_section(section.m_section) { ::EnterCriticalSection(&m_section); }
    ~CLock() { ::LeaveCriticalSection(&m_section); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;

private:
    CRITICAL_SECTION& m_section;
};

}  // namespace Tesk
