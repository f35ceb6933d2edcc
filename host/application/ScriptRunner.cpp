#include "host/application/ScriptRunner.h"

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/observation/Windows.h"

#include <utility>

namespace host {

namespace {

constexpr UINT kInterval = 15;
constexpr DWORD kLongestWait = 5000;  // for somebody to close a dialog, in milliseconds

// A timer of the thread: its procedure is called from every message loop, those
// of dialogs and menus too.
class ThreadTimer {
public:
    explicit ThreadTimer(TIMERPROC procedure) : m_id(::SetTimer(nullptr, 0, kInterval, procedure)) {}
    ~ThreadTimer() { ::KillTimer(nullptr, m_id); }
    ThreadTimer(const ThreadTimer&) = delete;
    ThreadTimer& operator=(const ThreadTimer&) = delete;

private:
    UINT_PTR m_id;
};

bool isBlank(const std::string& sLine)
{
    const std::size_t first = sLine.find_first_not_of(" \t\r");
    return first == std::string::npos || sLine[first] == ';';
}

}  // namespace

bool ScriptRunner::play(const std::vector<std::string>& lines, const std::string& sName)
{
    m_lines = lines;
    m_name = sName;
    m_next = 0;
    m_failed = false;
    m_stuckSince = 0;
    m_running = true;
    {
        const ThreadTimer timer(&ScriptRunner::onTimer);
        m_application.pumpUntilIdle();
        while (hasNext() && !m_application.isQuitting())
            runNext();
    }
    m_running = false;
    return !m_failed;
}

void ScriptRunner::runNext()
{
    const std::size_t line = m_next++;
    if (isBlank(m_lines[line]))
        return;
    const bool failedBefore = std::exchange(m_failed, false);
    if (!m_application.runLine(m_lines[line], true))
        m_failed = true;
    m_application.pumpUntilIdle();
    if (m_failed)
        reportFailure(line);
    m_failed = m_failed || failedBefore;
}

bool ScriptRunner::answersNext() const
{
    std::string sName;
    if (hasNext())
        Arguments::parse(m_lines[m_next], sName);
    return sName == "PRESS";
}

void ScriptRunner::reportFailure(std::size_t line)
{
    if (!m_name.empty())
        m_application.commandLine().printLine("Script " + m_name + ", line " + std::to_string(line + 1) +
                                              " failed: " + m_lines[line]);
}

void CALLBACK ScriptRunner::onTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (Application* const pApplication = Application::instance())
        pApplication->script().playIntoDialog();
}

void ScriptRunner::playIntoDialog()
{
    const HWND dialog = observation::topDialog();
    if (!m_running || m_inDialog || dialog == nullptr) {
        m_stuckSince = 0;
        return;
    }
    while (hasNext() && isBlank(m_lines[m_next]))
        ++m_next;
    if (hasNext() && Command::worksInDialog(m_lines[m_next])) {
        m_stuckSince = 0;
        m_inDialog = true;
        const std::size_t line = m_next++;
        if (!m_application.runLine(m_lines[line], true)) {
            m_failed = true;
            reportFailure(line);
        }
        m_inDialog = false;
        return;
    }
    const DWORD now = ::GetTickCount();
    if (m_stuckSince == 0) {
        m_stuckSince = now;
    } else if (now - m_stuckSince > kLongestWait) {
        m_stuckSince = 0;
        m_failed = true;
        m_application.commandLine().printLine("The dialog \"" + observation::textOf(dialog) +
                                              "\" stands in the script's way and is closed.");
        observation::dismiss(dialog);
    }
}

}  // namespace host
