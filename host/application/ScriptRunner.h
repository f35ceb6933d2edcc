#pragma once

// Plays script lines one after another: each runs when the one before has done
// all its work. While a line waits for a dialog that it opened, the lines behind
// it that observe dialogs are played into it.

#include <windows.h>

#include <string>
#include <vector>

namespace host {

class Application;

class ScriptRunner {
public:
    explicit ScriptRunner(Application& application) : m_application(application) {}

    // False when a line failed. The name, when there is one, goes into the message
    // about a failed line.
    bool play(const std::vector<std::string>& lines, const std::string& sName = {});
    bool isRunning() const { return m_running; }
    // The next line answers a question.
    bool answersNext() const;
    // A command set off by the script failed.
    void fail() { m_failed = true; }

private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);
    void playIntoDialog();
    void runNext();
    bool hasNext() const { return m_next < m_lines.size(); }
    void reportFailure(std::size_t line);

    Application& m_application;
    std::vector<std::string> m_lines;
    std::string m_name;
    std::size_t m_next = 0;
    bool m_running = false;
    bool m_failed = false;
    bool m_inDialog = false;
    DWORD m_stuckSince = 0;
};

}  // namespace host
