#pragma once

// Loads the modules that the registry names for this host: at its start, and when
// a command of theirs is typed before they are there.

#include <map>
#include <string>
#include <vector>

namespace host {

class CommandLine;
class DynamicLinker;

class DemandLoader {
public:
    DemandLoader(DynamicLinker& linker, CommandLine& commandLine) : m_linker(linker), m_commandLine(commandLine) {}

    // Both print why a module is not loaded, and go on.
    void loadAtStart();
    // Loads the modules whose entries name this command, globally or locally, in
    // any case. False when none was loaded.
    bool loadFor(const std::string& sCommand);

private:
    // What stands under one application's name.
    struct Entry {
        std::string loader;
        unsigned long controls = 0;
        std::vector<std::string> commands;
    };
    // By name. The user's entry hides the machine's of the same name.
    static std::map<std::string, Entry> entries();
    static Entry readEntry(const std::string& sPath, bool user);
    bool load(const Entry& entry);

    DynamicLinker& m_linker;
    CommandLine& m_commandLine;
};

}  // namespace host
