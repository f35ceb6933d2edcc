#pragma once

// Another ANSI code page for the thread, for the duration of a test.

#include <windows.h>

class CThreadLocale {
public:
    static constexpr LCID japanese = MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT);
    static constexpr LCID chinese = MAKELCID(MAKELANGID(LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED), SORT_DEFAULT);
    static constexpr LCID english = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

    explicit CThreadLocale(LCID locale) : m_previous(::GetThreadLocale()) { ::SetThreadLocale(locale); }
    ~CThreadLocale() { ::SetThreadLocale(m_previous); }
    CThreadLocale(const CThreadLocale&) = delete;
    CThreadLocale& operator=(const CThreadLocale&) = delete;

private:
    LCID m_previous;
};
