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

    void enter() { ::EnterCriticalSection(&m_section); }
    void leave() { ::LeaveCriticalSection(&m_section); }

private:
    CRITICAL_SECTION m_section;
};

class CLock {
public:
    explicit CLock(CCriticalSection& section) : m_section(section) { m_section.enter(); }
    ~CLock() { m_section.leave(); }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;

private:
    CCriticalSection& m_section;
};

}  // namespace Tesk
