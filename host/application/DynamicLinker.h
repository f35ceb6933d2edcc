#pragma once

// Loads modules, speaks the entry-point protocol with them, and unloads them.

#include "library/system/Handles.h"
#include "objectarx/rxdefs.h"
#include "objectarx/rxdlinkr.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace host {

class CommandStack;

class DynamicLinker final : public AcRxDynamicLinker {
public:
    using EntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* pkt);

    explicit DynamicLinker(CommandStack& commands) : m_commands(commands) {}

    // --- AcRxDynamicLinker
    bool unlockApplication(void* pkt) const override;
    bool registerAppMDIAware(void* pkt) const override;

    // Each gives the reason of a failure; empty for success. A failure leaves
    // nothing loaded. A module that does not declare itself aware of several
    // drawings is refused, unless single is set.
    std::string load(const std::string& sPath, bool single);
    // The same for an entry point that is in this program already.
    std::string attach(const std::string& sName, EntryPoint entryPoint);
    // By file name, with or without folder and extension; any case. A module that
    // has not unlocked itself stays, unless force is set.
    std::string unload(const std::string& sName, bool force = false);
    void unloadAll();

    void broadcast(AcRx::AppMsgCode message);
    std::vector<std::string> names() const;

private:
    struct Module {
        std::string name;
        std::string path;
        UniqueModule library;
        EntryPoint entryPoint = nullptr;
        mutable bool unlocked = false;
        mutable bool mdiAware = false;
    };

    std::string initialise(std::unique_ptr<Module> module, bool single);
    void dropCommands(const Module& module);
    const Module* starting(const void* pkt) const;
    std::vector<std::unique_ptr<Module>>::iterator find(const std::string& sName);

    CommandStack& m_commands;
    std::vector<std::unique_ptr<Module>> m_modules;
    const Module* m_pStarting = nullptr;
};

}  // namespace host
