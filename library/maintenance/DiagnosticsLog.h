#pragma once

// The diagnostics log file: a description of the machine, then one line a
// report. The log may fail to be written, but never raises.

#include "library/threads/CriticalSection.h"
#include "mfc/afx.h"

#include <vector>

namespace Tesk {

class CDiagnosticsLog {
public:
    static CDiagnosticsLog& get() { return s_log; }

    // Where the log is: looked up once, as the lookup may itself want to log.
    CString getFileName() noexcept;

    // Looks the place up again and deletes the log that is there.
    void startAfresh() noexcept;

    // Appends one line, less its trailing line feeds. Creates missing folders,
    // and the header when the file does not exist. What is reported while the
    // same thread appends (the header's own lookups) is dropped.
    void append(const char* sText) noexcept;

    // The calling thread is inside append.
    bool isAppending() const { return m_dwOwner == ::GetCurrentThreadId(); }

    // The local time in a strftime format.
    static CString now(const char* sFormat);

    // The log's path without extension, of a folder that is there: what crash dumps are named after.
    static CString getDumpStem();

private:
    CDiagnosticsLog() = default;
    void write(const char* sText);

    static CDiagnosticsLog s_log;  // there before any thread asks for it

    CCriticalSection m_section;
    CString m_sFileName;
    volatile DWORD m_dwOwner = 0;  // the thread inside append
};

// The lines that a new log starts with; a line without its registry value is left out.
std::vector<CString> describeMachine();

}  // namespace Tesk
