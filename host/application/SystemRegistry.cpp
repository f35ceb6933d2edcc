#include "host/application/SystemRegistry.h"

#include "host/application/Application.h"

namespace host {

AcRxObject* Dictionary::at(const char* sName) const
{
    for (const auto& [name, pObject] : m_entries)
        if (sName != nullptr && name == sName)
            return pObject;
    return nullptr;
}

}  // namespace host

AcRxDictionary* acrxSysRegistry()
{
    static host::Dictionary empty;
    host::Application* const pApplication = host::Application::instance();
    return pApplication != nullptr ? &pApplication->systemRegistry() : &empty;
}
