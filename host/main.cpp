// cadhost [/nologo] [/nodemand] [/assume NAME]... [/ld MODULE] [/b SCRIPT] [DRAWING...]: a stand-in CAD host.
// With a script it plays that and ends; its exit code is 0 when all went well.

#include "host/CrashReport.h"
#include "host/application/Application.h"
#include "host/drawing/Assumptions.h"
#include "host/drawing/Paths.h"

#include <cstdlib>

namespace {

struct CommandLineArguments {
    bool logo = true;
    bool demandLoading = true;
    std::string script;
    std::vector<std::string> modules;
    std::vector<std::string> drawings;
    std::string error;
};

CommandLineArguments parse(int count, char** words)
{
    CommandLineArguments arguments;
    for (int i = 1; i < count; ++i) {
        const std::string sWord = words[i];
        const bool hasValue = i + 1 < count;
        if (sWord == "/nologo")
            arguments.logo = false;
        else if (sWord == "/nodemand")
            arguments.demandLoading = false;
        else if (sWord == "/ld" && hasValue)
            arguments.modules.push_back(words[++i]);
        else if (sWord == "/assume" && hasValue && host::assume(words[i + 1]))
            ++i;
        else if (sWord == "/assume")
            arguments.error = "What can be assumed: " + host::assumptionNames() + ".";
        else if (sWord == "/b" && hasValue)
            arguments.script = words[++i];
        else if (sWord.starts_with("/"))
            arguments.error = "The argument \"" + sWord + "\" is unknown or lacks its value.";
        else
            arguments.drawings.push_back(sWord);
    }
    return arguments;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    host::reportCrashes();
    // The time zone is the system's: the C runtime would misread a zone's Unix name.
    ::_putenv("TZ=");
    const CommandLineArguments arguments = parse(__argc, __argv);
    host::Options options;
    options.standardOutput = true;
    options.demandLoading = arguments.demandLoading;
    host::Application application(options);
    if (arguments.logo)
        application.commandLine().printLine("Cadhost, a stand-in CAD host.");
    if (!arguments.error.empty()) {
        application.commandLine().printLine(arguments.error);
        return EXIT_FAILURE;
    }

    // Paths are those of the start, whatever a dialog does to the current folder later.
    bool succeeded = true;
    const auto perform = [&](const std::string& sCommand, const std::string& sPath) {
        succeeded = application.execute(sCommand + " \"" + host::fullPath(sPath) + "\"").succeeded && succeeded;
    };
    for (const std::string& sDrawing : arguments.drawings)
        perform("OPEN", sDrawing);
    if (arguments.drawings.empty())
        application.execute("NEW");
    for (const std::string& sModule : arguments.modules)
        perform("ARX L", sModule);
    if (!arguments.script.empty())
        return application.executeFile(arguments.script) && succeeded ? EXIT_SUCCESS : EXIT_FAILURE;
    application.run();
    return EXIT_SUCCESS;
}
