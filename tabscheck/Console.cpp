#include "tabscheck/Console.h"

#include "library/text/CodePage.h"

#include <windows.h>

#include <algorithm>

namespace tabscheck {

namespace {

constexpr std::size_t kBlock = 8 * 1024;
constexpr int kUnread = 2;  // the exit code, as for all that could not be done

}  // namespace

std::string encode(const std::wstring& sWide, unsigned uCodePage)
{
    const int length = static_cast<int>(sWide.size());
    const int size = ::WideCharToMultiByte(uCodePage, 0, sWide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string sBytes(static_cast<std::size_t>(std::max(size, 0)), '\0');
    ::WideCharToMultiByte(uCodePage, 0, sWide.data(), length, sBytes.data(), size, nullptr, nullptr);
    return sBytes;
}

bool isControl(wchar_t c)
{
    return (c < L' ' && c != L'\r' && c != L'\n') || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

// A program without a console, such as at the end of a pipe, writes in the code page that
// a console would have.
Console::Console()
    : m_output(::GetStdHandle(STD_OUTPUT_HANDLE)),
      m_errors(::GetStdHandle(STD_ERROR_HANDLE)),
      m_codePage(::GetConsoleOutputCP())
{
    if (m_codePage == 0)
        m_codePage = ::GetOEMCP();
}

Console::~Console() { flush(); }

std::string Console::toConsole(std::string_view sText) const
{
    std::wstring sWide = Tesk::toWide(sText);  // a name of a file may hold them
    std::replace_if(sWide.begin(), sWide.end(), isControl, L' ');
    std::string sBytes = encode(sWide, m_codePage);
    // A code page may show some of its control characters as signs: a bullet is the bell's.
    std::replace_if(
        sBytes.begin(), sBytes.end(), [](char c) { return (c & 0x80) == 0 && isControl(static_cast<wchar_t>(c)); },
        '?');
    return sBytes;
}

void Console::print(std::string_view sText) { printBytes(toConsole(sText)); }

void Console::printBytes(std::string_view sBytes)
{
    m_pending += sBytes;
    if (m_pending.size() >= kBlock)
        flush();
}

void Console::complain(std::string_view sText)
{
    flush();
    write(m_errors, toConsole(sText) + "\r\n");
}

void Console::flush()
{
    if (!write(m_output, m_pending))
        ::ExitProcess(kUnread);
    m_pending.clear();
}

bool Console::write(void* handle, std::string_view sBytes)
{
    while (!sBytes.empty()) {
        const auto size = static_cast<DWORD>(std::min(sBytes.size(), kBlock));
        DWORD written = 0;
        if (!::WriteFile(handle, sBytes.data(), size, &written, nullptr) || written == 0)
            return false;
        sBytes.remove_prefix(written);
    }
    return true;
}

}  // namespace tabscheck
