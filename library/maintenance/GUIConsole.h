#pragma once

// The console stream of the diagnostics: the process's standard error where it
// has one, else a console window opened at the first line.

#include "library/system/Handles.h"
#include "library/threads/CriticalSection.h"

#include <windows.h>

#include <array>
#include <string_view>

namespace Tesk {

// Input, output, errors.
using CStandardStreams = std::array<HANDLE, 3>;

class CGUIConsole {
public:
    static CGUIConsole& get() { return s_console; }

    // Writes one line, less its trailing line feeds; lines of several threads do not mix. Never raises.
    void writeLine(std::string_view sLine) noexcept;

    // Closes the window, if this object opened it. A later line opens it again.
    void release() noexcept;

private:
    CGUIConsole() = default;
    bool open();
    void close();

    static CGUIConsole s_console;  // there before any thread asks for it

    CCriticalSection m_section;
    CStandardStreams m_streams = {};  // that came with the window
    UniqueHandle m_window;            // set only while a window of our own is open
    HANDLE m_hOutput = nullptr;
};

}  // namespace Tesk
