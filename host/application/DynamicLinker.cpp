#include "host/application/DynamicLinker.h"

#include "host/application/Application.h"
#include "host/application/CommandStack.h"
#include "host/drawing/Paths.h"

#include <algorithm>

namespace host {

namespace {

using GetApiVersion = unsigned (*)();

template <class Function>
Function procedure(HMODULE library, const char* sName)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(library, sName)));
}

std::string loadError(DWORD error)
{
    switch (error) {
    case ERROR_BAD_EXE_FORMAT:
        return "the file is no module for this program";
    case ERROR_MOD_NOT_FOUND:
        return "a library that the module needs is missing";
    case ERROR_PROC_NOT_FOUND:
        return "a function that the module needs is missing";
    default:
        return FileError::systemReason(error);
    }
}

HMODULE imageOf(const void* pAddress)
{
    MEMORY_BASIC_INFORMATION information{};
    ::VirtualQuery(pAddress, &information, sizeof information);
    return static_cast<HMODULE>(information.AllocationBase);
}

}  // namespace

bool DynamicLinker::unlockApplication(void* pkt) const
{
    const Module* const pModule = starting(pkt);
    if (pModule != nullptr)
        pModule->unlocked = true;
    return pModule != nullptr;
}

bool DynamicLinker::registerAppMDIAware(void* pkt) const
{
    const Module* const pModule = starting(pkt);
    if (pModule != nullptr)
        pModule->mdiAware = true;
    return pModule != nullptr;
}

const DynamicLinker::Module* DynamicLinker::starting(const void* pkt) const
{
    return pkt != nullptr && pkt == m_pStarting ? m_pStarting : nullptr;
}

std::vector<std::unique_ptr<DynamicLinker::Module>>::iterator DynamicLinker::find(const std::string& sName)
{
    const auto same = [](const std::string& a, const std::string& b) { return ::lstrcmpiA(a.c_str(), b.c_str()) == 0; };
    return std::find_if(m_modules.begin(), m_modules.end(), [&](const auto& module) {
        return same(nameOf(sName), nameOf(module->path)) || same(baseNameOf(sName), module->name);
    });
}

std::string DynamicLinker::load(const std::string& sPath, bool single)
{
    const std::string sFullPath = fullPath(sPath);
    if (!fileExists(sFullPath))
        return "the file is not there";
    if (find(sFullPath) != m_modules.end())
        return "a module of that name is loaded already";

    auto module = std::make_unique<Module>();
    module->name = baseNameOf(sFullPath);
    module->path = sFullPath;
    module->library.reset(::LoadLibraryExA(sFullPath.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!module->library)
        return loadError(::GetLastError());
    module->entryPoint = procedure<EntryPoint>(module->library.get(), "acrxEntryPoint");
    if (module->entryPoint == nullptr)
        return "the module has no entry point (acrxEntryPoint)";
    const auto version = procedure<GetApiVersion>(module->library.get(), "acrxGetApiVersion");
    if (version == nullptr)
        return "the module does not say for which host it was built (acrxGetApiVersion)";
    if (version() != ACRX_API_VERSION)
        return "the module was built for another host (version " + std::to_string(version()) + ")";
    return initialise(std::move(module), single);
}

std::string DynamicLinker::attach(const std::string& sName, EntryPoint entryPoint)
{
    if (find(sName) != m_modules.end())
        return "a module of that name is loaded already";
    auto module = std::make_unique<Module>();
    module->name = baseNameOf(sName);
    module->path = sName;
    module->entryPoint = entryPoint;
    return initialise(std::move(module), false);
}

std::string DynamicLinker::initialise(std::unique_ptr<Module> module, bool single)
{
    m_pStarting = module.get();
    const AcRx::AppRetCode answer = module->entryPoint(AcRx::kInitAppMsg, module.get());
    m_pStarting = nullptr;
    const bool refuses = answer != AcRx::kRetOK;
    if (refuses || (!module->mdiAware && !single)) {
        if (!refuses)
            module->entryPoint(AcRx::kUnloadAppMsg, module.get());
        dropCommands(*module);
        return refuses ? "the module refused to start" : "the module cannot work with several drawings";
    }
    const Module& loaded = *m_modules.emplace_back(std::move(module));
    for (std::size_t i = 0; i < Application::instance()->documents().count(); ++i)
        loaded.entryPoint(AcRx::kLoadDwgMsg, m_modules.back().get());
    return {};
}

std::string DynamicLinker::unload(const std::string& sName, bool force)
{
    const auto place = find(sName);
    if (place == m_modules.end())
        return "no module of that name is loaded";
    if (!(*place)->unlocked && !force)
        return "the module is locked";
    const std::unique_ptr<Module> module = std::move(*place);
    m_modules.erase(place);
    module->entryPoint(AcRx::kUnloadAppMsg, module.get());
    return {};
}

// Of a module that did not start. One that did takes its own away, as the vendor's host asks.
void DynamicLinker::dropCommands(const Module& module)
{
    const HMODULE image = imageOf(reinterpret_cast<const void*>(module.entryPoint));
    m_commands.removeWhere(
        [image](AcRxFunctionPtr function) { return imageOf(reinterpret_cast<const void*>(function)) == image; });
}

void DynamicLinker::unloadAll()
{
    while (!m_modules.empty())
        unload(m_modules.back()->path, true);
}

void DynamicLinker::broadcast(AcRx::AppMsgCode message)
{
    for (const auto& module : m_modules)
        module->entryPoint(message, module.get());
}

std::vector<std::string> DynamicLinker::names() const
{
    std::vector<std::string> names;
    for (const auto& module : m_modules)
        names.push_back(module->name);
    return names;
}

}  // namespace host

AcRxDynamicLinker* acrxDynamicLinkerPtr()
{
    host::Application* const pApplication = host::Application::instance();
    return pApplication != nullptr ? &pApplication->linker() : nullptr;
}
