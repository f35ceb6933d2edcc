#include "host/application/Application.h"

#include "host/commands/Command.h"
#include "host/drawing/Assumptions.h"
#include "host/drawing/Counted.h"
#include "host/drawing/Paths.h"
#include "host/ui/MainFrame.h"
#include "mfc/MessagePump.h"

#include <algorithm>
#include <fstream>

namespace host {

namespace {

constexpr char kCancel = '\x03';  // what Ctrl+C or Escape types into a command string

std::string withoutCancels(std::string sLine)
{
    std::erase(sLine, kCancel);
    const std::size_t first = sLine.find_first_not_of(" \t");
    return first == std::string::npos ? std::string() : sLine.substr(first);
}

}  // namespace

Application* Application::s_pInstance = nullptr;

Application::Application(const Options& options)
    : m_commandLine(options.standardOutput),
      m_documents(*this),
      m_linker(m_commandStack),
      m_variables(m_documents),
      m_script(*this)
{
    s_pInstance = this;
    m_classes.entries = {{"AcEditor", &m_editor}};
    m_systemRegistry.entries = {{"ClassDictionary", &m_classes}, {"ACAD_REGISTERED_COMMANDS", &m_commandStack}};
    m_frame = std::make_unique<MainFrame>(*this);
    m_frame->create(options.visible);
    if (options.visible)
        m_commandLine.setView([this](std::string_view text) { m_frame->showHistory(text); });
    pumpUntilIdle();
    if (options.demandLoading) {
        m_demandLoader = std::make_unique<DemandLoader>(m_linker, m_commandLine);
        m_demandLoader->loadAtStart();
    }
}

Application::~Application()
{
    m_linker.broadcast(AcRx::kQuitMsg);
    m_documents.closeAll();
    m_linker.unloadAll();
    m_commandLine.setView(nullptr);
    m_frame.reset();
    s_pInstance = nullptr;
}

Result Application::execute(const std::vector<std::string>& lines)
{
    const std::size_t start = m_commandLine.history().size();
    const bool succeeded = m_script.play(lines);
    return {succeeded, m_commandLine.history().substr(start)};
}

bool Application::executeFile(const std::string& sPath)
{
    std::ifstream file(sPath, std::ios::binary);
    if (!file) {
        m_commandLine.printLine("The script \"" + sPath + "\" cannot be read.");
        return false;
    }
    std::vector<std::string> lines;
    for (std::string sLine; std::getline(file, sLine);) {
        if (!sLine.empty() && sLine.back() == '\r')
            sLine.pop_back();
        lines.push_back(sLine);
    }
    return m_script.play(lines, nameOf(sPath));
}

void Application::pumpUntilIdle()
{
    MSG message;
    do {
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
            if (!pumpMessage()) {
                m_quitting = true;
                return;
            }
    } while (!m_quitting && runNextInput());
}

bool Application::pumpMessage()
{
    return toolkit::pumpMessage([](MSG& message) {
        // One may remove itself, or another.
        const std::vector<AcedFilterWinMsgFn*> filters = s_pInstance->m_filters;
        return std::any_of(filters.begin(), filters.end(), [&](AcedFilterWinMsgFn* pFilter) {
            return std::ranges::count(s_pInstance->m_filters, pFilter) != 0 && pFilter(&message);
        });
    });
}

bool Application::addFilter(AcedFilterWinMsgFn* pFilter)
{
    if (pFilter == nullptr || std::ranges::count(m_filters, pFilter) != 0)
        return false;
    m_filters.push_back(pFilter);
    return true;
}

void Application::run()
{
    while (!m_quitting) {
        pumpUntilIdle();
        if (!m_quitting)
            ::WaitMessage();
    }
}

void Application::submit(const std::string& sLine)
{
    m_typed.push_back(sLine);
    m_frame->PostMessage(WM_KICKIDLE);
}

// Idle processing: one line of what was typed or queued. True when there was one.
bool Application::runNextInput()
{
    if (m_depth != 0)
        return false;
    if (!m_typed.empty()) {
        const std::string sLine = m_typed.front();
        m_typed.erase(m_typed.begin());
        runLine(sLine, true);
        return true;
    }
    const auto input = m_documents.nextInput();
    if (!input)
        return false;
    if (input->activate)
        m_documents.activateDocument(input->pDocument);
    m_documents.setCurrent(input->pDocument);
    if (!input->wrapUp && input->pDocument != m_documents.active())
        m_commandLine.printLine("\"" + input->pDocument->title() + "\" is not wrapped up.");
    if (!runLine(input->line, input->echo))
        m_script.fail();
    m_documents.setCurrent(m_documents.active());
    return true;
}

bool Application::runLine(const std::string& sLine, bool echo)
{
    const std::string sCommand = withoutCancels(sLine);
    if (sCommand.empty())
        return true;
    if (echo)
        m_commandLine.printLine("Command: " + sCommand);
    const Counted command(m_depth);
    try {
        return dispatch(sCommand);
    } catch (const std::exception& error) {  // CommandError, FileError, or no memory
        m_commandLine.printError(error);
        return false;
    }
}

bool Application::dispatch(const std::string& sLine)
{
    std::string sName;
    const Arguments arguments = Arguments::parse(sLine, sName);
    if (const Command* const pCommand = Command::find(CommandStack::plainName(sName))) {
        pCommand->run(*this, arguments);
        return true;
    }
    AcRxFunctionPtr function = m_commandStack.find(sName);
    if (function == nullptr && m_demandLoader && m_demandLoader->loadFor(CommandStack::plainName(sName)))
        function = m_commandStack.find(sName);
    if (function != nullptr) {
        function();
        return true;
    }
    m_commandLine.printLine("Unknown command \"" + sName + "\".");
    return false;
}

bool Application::mayLose(Document& document)
{
    if (!document.isModified())
        return true;
    if (isScripted() && !m_script.answersNext()) {
        m_commandLine.printLine("The changes to \"" + document.title() + "\" are discarded.");
        return true;
    }
    m_documents.activateDocument(&document);
    const int answer = m_frame->askAboutChanges(document);
    if (answer != IDYES)
        return answer == IDNO;
    m_documents.setCurrent(&document);
    return runLine("_QSAVE", true) && !document.isModified();
}

bool Application::closeDocument(Document& document)
{
    if (!mayLose(document)) {
        if (!assumed(Assumption::CancelUnsaid))
            m_editor.notify(&AcEditorReactor::docCloseAborted, document.database());
        return false;
    }
    m_documents.close(document);
    return true;
}

bool Application::quit()
{
    for (std::size_t i = m_documents.count(); i-- != 0;)
        if (!mayLose(m_documents.at(i)))
            return false;
    m_documents.closeAll();
    m_quitting = true;
    return true;
}

}  // namespace host
