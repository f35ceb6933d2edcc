#pragma once

// The running host: frame, documents, editor, command line, modules. One at a
// time in a process; it may be made anew after the last one is gone.

#include "host/application/CommandLine.h"
#include "host/application/CommandStack.h"
#include "host/application/DemandLoader.h"
#include "host/application/DocumentManager.h"
#include "host/application/DynamicLinker.h"
#include "host/application/Editor.h"
#include "host/application/ScriptRunner.h"
#include "host/application/SystemVariables.h"
#include "objectarx/rxdict.h"
#include "objectarx/rxmfcapi.h"

#include "host/observation/Tips.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace host {

class MainFrame;

// The entries through which modules find the host's services.
class Dictionary final : public AcRxDictionary {
public:
    AcRxObject* at(const char* sName) const override
    {
        const auto entry = sName != nullptr ? entries.find(sName) : entries.end();
        return entry != entries.end() ? entry->second : nullptr;
    }

    std::map<std::string, AcRxObject*> entries;
};

struct Options {
    bool visible = true;          // show the frame
    bool standardOutput = false;  // copy the command-line history there
    bool demandLoading = false;   // load what the registry names: now, and on commands
};

// What a command or a script printed, and whether all of it succeeded.
struct Result {
    bool succeeded = true;
    std::string output;
};

class Application {
public:
    // Starts with an empty frame: no drawing is open.
    explicit Application(const Options& options = {});
    // Closes all documents without asking, unloads the modules, destroys the frame.
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Null while there is none.
    static Application* instance() { return s_pInstance; }

    CommandLine& commandLine() { return m_commandLine; }
    DocumentManager& documents() { return m_documents; }
    DynamicLinker& linker() { return m_linker; }
    Editor& editor() { return m_editor; }
    MainFrame& frame() { return *m_frame; }
    ScriptRunner& script() { return m_script; }
    SystemVariables& variables() { return m_variables; }
    AcRxDictionary& systemRegistry() { return m_systemRegistry; }

    // Runs one line as a script does, and all that it sets off.
    Result execute(const std::string& sLine) { return execute(std::vector<std::string>{sLine}); }
    // Runs a script. Lines that look at dialogs and menus are run while an earlier
    // line waits for its dialog.
    Result execute(const std::vector<std::string>& lines);
    // The same for a file; prints where it failed.
    bool executeFile(const std::string& sPath);

    // Handles all messages and queued input there are.
    void pumpUntilIdle();
    // Handles the next message, waiting for it. False for WM_QUIT.
    bool pumpMessage();
    // What modules see of the messages; each false when it is so already.
    bool addFilter(AcedFilterWinMsgFn* pFilter);
    bool removeFilter(AcedFilterWinMsgFn* pFilter) { return std::erase(m_filters, pFilter) != 0; }
    std::size_t filterCount() const { return m_filters.size(); }
    // Handles messages until somebody quits.
    void run();

    // A person typed a line: it runs when the host is idle.
    void submit(const std::string& sLine);
    // Runs one command line at once, in the context of the current document. False when it failed.
    bool runLine(const std::string& sLine, bool echo);

    // Nobody is there to answer questions.
    bool isScripted() const { return m_script.isRunning(); }
    // Asks a person about the document's changes, with the document in front, and saves
    // them if so wished; a script is not asked. False when the person said no.
    bool mayLose(Document& document);
    // Closes the document, if it may be lost.
    bool closeDocument(Document& document);
    // Closes all and ends run(); when a drawing may not be lost, all stay open.
    bool quit();
    bool isQuitting() const { return m_quitting; }
    // A command is running.
    bool isBusy() const { return m_depth != 0; }

private:
    bool runNextInput();
    bool dispatch(const std::string& sLine);

    static Application* s_pInstance;

    CommandLine m_commandLine;
    CommandStack m_commandStack;
    Editor m_editor;
    DocumentManager m_documents;
    DynamicLinker m_linker;
    std::unique_ptr<DemandLoader> m_demandLoader;  // null where the registry is not asked
    SystemVariables m_variables;
    ScriptRunner m_script;
    Dictionary m_classes;
    Dictionary m_systemRegistry;
    observation::Tips m_tips;
    std::unique_ptr<MainFrame> m_frame;
    std::vector<std::string> m_typed;
    std::vector<AcedFilterWinMsgFn*> m_filters;
    bool m_quitting = false;
    int m_depth = 0;
};

}  // namespace host
