#pragma once

// The command-line history: everything that the host, its commands and the
// modules say. It goes to the window's history, to standard output, and to
// whoever collects the output of a command.

#include <exception>
#include <functional>
#include <string>
#include <string_view>

namespace host {

class CommandLine {
public:
    // With standard output every text is also written there at once, in the ANSI code page.
    explicit CommandLine(bool standardOutput) : m_standardOutput(standardOutput) {}

    void print(std::string_view text);
    // Ends the last line when it is unfinished.
    void startLine();
    // The text on a line of its own.
    void printLine(std::string_view text);
    // What the exception says, or that there is no memory.
    void printError(const std::exception& error);

    // Shows the history; null for none. (An edit control takes a heap block a line.)
    void setView(std::function<void(std::string_view)> view) { m_view = std::move(view); }
    // All that was printed; the caller may cut it off to collect what comes next.
    std::string& history() { return m_history; }

private:
    bool m_standardOutput;
    std::function<void(std::string_view)> m_view;
    std::string m_history;
    bool m_atLineStart = true;
};

}  // namespace host
