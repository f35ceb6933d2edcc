#include "host/application/CommandLine.h"

#include <windows.h>

#include <new>

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

void CommandLine::printError(const std::exception& error)
{
    const bool memory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr;
    printLine(memory ? "There is not enough memory for that." : error.what());
}

}  // namespace host
