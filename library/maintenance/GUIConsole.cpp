#include "library/maintenance/GUIConsole.h"

#include "library/diagnostics/Guard.h"

#include <string>

namespace Tesk {

namespace {

// Closing a console window would end the process that it belongs to: take the
// command away.
void disarmClosing()
{
    if (const HWND hWindow = ::GetConsoleWindow())
        if (const HMENU hMenu = ::GetSystemMenu(hWindow, FALSE))
            ::DeleteMenu(hMenu, SC_CLOSE, MF_BYCOMMAND);
}

// Neither Ctrl+C nor Ctrl+Break in the window is meant for the program that we are part of.
BOOL WINAPI keepRunning(DWORD dwEvent) { return dwEvent == CTRL_C_EVENT || dwEvent == CTRL_BREAK_EVENT; }

constexpr DWORD kStreams[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};

// Puts others into the place of the process's standard streams, and gives those back.
CStandardStreams exchangeStreams(const CStandardStreams& streams)
{
    CStandardStreams before;
    for (std::size_t i = 0; i < sizeof kStreams / sizeof *kStreams; ++i) {
        before[i] = ::GetStdHandle(kStreams[i]);
        ::SetStdHandle(kStreams[i], streams[i]);
    }
    return before;
}

}  // namespace

CGUIConsole CGUIConsole::s_console;

bool CGUIConsole::open()
{
    if (m_hOutput)
        return true;
    m_hOutput = ::GetStdHandle(STD_ERROR_HANDLE);
    if (m_hOutput == INVALID_HANDLE_VALUE)
        m_hOutput = nullptr;
    if (m_hOutput)
        return true;
    // A new console replaces the process's standard streams, and its end closes what then
    // stands there: while it is up, and when it is gone, that is what the host had.
    const CStandardStreams hosts = exchangeStreams({});
    const bool bOpened = ::AllocConsole() != FALSE;
    m_streams = exchangeStreams(hosts);
    if (!bOpened)
        return false;
    ::SetConsoleCtrlHandler(keepRunning, TRUE);
    disarmClosing();
    m_window.reset(::CreateFileA("CONOUT$", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                 0, nullptr));
    if (!m_window) {
        close();
        return false;
    }
    m_hOutput = m_window.get();
    return true;
}

void CGUIConsole::close()
{
    ::SetConsoleCtrlHandler(keepRunning, FALSE);
    const CStandardStreams hosts = exchangeStreams(m_streams);
    ::FreeConsole();
    exchangeStreams(hosts);
}

void CGUIConsole::writeLine(std::string_view sLine) noexcept
{
    const CLock lock(m_section);
    if (!open())
        return;
    neverRaise([&] {
        const std::string sText = std::string(sLine.substr(0, sLine.find_last_not_of('\n') + 1)) + "\r\n";
        DWORD dwWritten = 0;
        ::WriteFile(m_hOutput, sText.data(), static_cast<DWORD>(sText.size()), &dwWritten, nullptr);
    });
}

void CGUIConsole::release() noexcept
{
    const CLock lock(m_section);
    if (m_window) {
        m_window.reset();
        close();
    }
    m_hOutput = nullptr;
}

}  // namespace Tesk
