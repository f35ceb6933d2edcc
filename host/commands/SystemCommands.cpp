// The commands about the host itself.

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/drawing/Faults.h"
#include "host/drawing/Paths.h"
#include "library/system/Handles.h"

namespace host {

namespace {

void arx(Application& application, const Arguments& a)
{
    CommandLine& out = application.commandLine();
    if (a.size() == 0) {
        for (const std::string& sName : application.linker().names())
            out.printLine(sName);
        return;
    }
    const std::string sOption = CommandStack::plainName(a.text(0));
    const std::string sName = a.rest(1);
    if (sOption != "L" && sOption != "U")
        throw CommandError("The option is L to load or U to unload.");
    if (sOption == "L") {
        const bool single = application.variables().get("SDI")->numbers[0] != 0;
        const std::string sReason = application.linker().load(sName, single);
        if (!sReason.empty())
            throw CommandError("\"" + sName + "\" is not loaded: " + sReason + ".");
        out.printLine(baseNameOf(sName) + " loaded.");
    } else {
        const std::string sReason = application.linker().unload(sName);
        if (!sReason.empty())
            throw CommandError("\"" + sName + "\" is not unloaded: " + sReason + ".");
        out.printLine(baseNameOf(sName) + " unloaded.");
    }
}

void setVariable(Application& application, const Arguments& a)
{
    std::string sName = a.text(0);
    ::CharUpperBuffA(sName.data(), static_cast<DWORD>(sName.size()));
    auto value = application.variables().get(sName);
    if (!value)
        throw CommandError("There is no system variable " + sName + ".");
    if (a.size() == 1) {
        application.commandLine().printLine(sName + " = " + SystemVariables::toText(*value));
        return;
    }
    if (!SystemVariables::fromText(a.rest(1), *value))
        throw CommandError("\"" + a.rest(1) + "\" is no value for " + sName + ".");
    switch (application.variables().set(sName, *value)) {
    case SystemVariables::SetResult::done:
        return;
    case SystemVariables::SetResult::readOnly:
        throw CommandError(sName + " is read-only.");
    default:
        throw CommandError(sName + " cannot be set to \"" + a.rest(1) + "\".");
    }
}

// By the number of the document in opening order, from 0; without one all are listed.
void switchDocument(Application& application, const Arguments& a)
{
    DocumentManager& documents = application.documents();
    for (std::size_t i = 0; a.size() == 0 && i < documents.count(); ++i)
        application.commandLine().printLine("drawing " + std::to_string(i) + ": \"" + documents.at(i).fileName() +
                                            "\"" + (documents.at(i).isModified() ? " modified" : "") +
                                            (&documents.at(i) == documents.active() ? " active" : ""));
    if (a.size() == 0)
        return;
    const int index = a.integer(0);
    if (index < 0 || static_cast<std::size_t>(index) >= documents.count())
        throw CommandError("There is no drawing " + a.text(0) + ".");
    if (documents.activateDocument(&documents.at(static_cast<std::size_t>(index))) != Acad::eOk)
        throw CommandError("Switching between drawings is disabled.");
}

void lockDocuments(Application& application, const Arguments& a)
{
    if (a.integer(0) != 0)
        application.documents().disableDocumentActivation();
    else
        application.documents().enableDocumentActivation();
}

// FAULT name n: the n-th call of the API function from now on fails. FAULT alone ends that;
// behind FAULT * 0 it lists the calls since.
void fault(Application& application, const Arguments& a)
{
    if (a.size() == 0) {
        application.commandLine().printLine(Faults::fired() ? "fault: fired" : "fault: not fired");
        Faults::clear();
        for (const auto& [sName, count] : Faults::calls())
            application.commandLine().printLine("called: " + sName + " " + std::to_string(count));
        return;
    }
    if (!Faults::failNth(a.text(0), a.integer(1)))
        throw CommandError("No call is named " + a.text(0) + ".");
}

constexpr DWORD kLongestShell = 60000;  // in milliseconds; it may be asking something that nobody sees

// For what a script needs of the system itself.
void shell(Application&, const Arguments& a)
{
    STARTUPINFOA start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION shell = {};
    // Without a window, which would take the focus.
    if (!::CreateProcessA(nullptr, ("cmd /c " + a.rest(0)).data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                          nullptr, &start, &shell))
        throw CommandError("It could not be started (" + std::to_string(::GetLastError()) + ").");
    const UniqueHandle process(shell.hProcess), thread(shell.hThread);
    if (::WaitForSingleObject(process.get(), kLongestShell) != WAIT_OBJECT_0)
        throw CommandError("It has not ended.");
    DWORD code = 0;
    ::GetExitCodeProcess(process.get(), &code);
    if (code != 0)
        throw CommandError("It ended with " + std::to_string(code) + ".");
}

// REGISTRY key name number: a DWORD of the current user's.
void setRegistryValue(Application&, const Arguments& a)
{
    HKEY opened = nullptr;
    LSTATUS status = ::RegCreateKeyA(HKEY_CURRENT_USER, a.text(0).c_str(), &opened);
    const UniqueKey key(opened);
    const DWORD value = static_cast<DWORD>(a.integer(2));
    if (key)
        status = ::RegSetValueExA(key.get(), a.text(1).c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                                  sizeof value);
    if (status != ERROR_SUCCESS)
        throw CommandError("It cannot be stored (" + std::to_string(status) + ").");
}

void help(Application& application, const Arguments&)
{
    std::string sNames;
    for (const auto table : {fileCommands(), drawingCommands(), systemCommands(), observationCommands()})
        for (const Command& command : table)
            sNames += (sNames.empty() ? "" : ", ") + std::string(command.name);
    application.commandLine().printLine(sNames + ".");
}

constexpr Command kCommands[] = {
    {"HELP", help},
    {"ARX", arx},
    {"SETVAR", setVariable},
    {"SWITCH", switchDocument},
    {"LOCKDOCS", lockDocuments},
    {"FAULT", fault},
    {"SHELL", shell},
    {"REGISTRY", setRegistryValue},
};

}  // namespace

std::span<const Command> systemCommands() { return kCommands; }

}  // namespace host
