#include "host/application/CommandLine.h"

#include <windows.h>

namespace host {

void CommandLine::print(std::string_view text)
{
    if (text.empty())
        return;
    m_atLineStart = text.back() == '\n';
    m_history.append(text);
    if (m_standardOutput) {
        DWORD written = 0;
        ::WriteFile(::GetStdHandle(STD_OUTPUT_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }
    if (m_view)
        m_view(text);
}

void CommandLine::startLine()
{
    if (!m_atLineStart)
        print("\n");
}

void CommandLine::printLine(std::string_view text)
{
    startLine();
    print(std::string(text) + "\n");
}

}  // namespace host
