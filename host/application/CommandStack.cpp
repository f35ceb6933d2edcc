#include "host/application/CommandStack.h"

#include "host/drawing/Faults.h"

#include <algorithm>
#include <cstring>

namespace host {

namespace {

bool same(const std::string& a, const std::string& b) { return ::lstrcmpiA(a.c_str(), b.c_str()) == 0; }

bool isName(const char* sName)
{
    return sName != nullptr && *sName != '\0' && std::strlen(sName) <= CommandStack::kMaxName &&
           std::strpbrk(sName, " \t\r\n\"_.'") != sName && std::strpbrk(sName, " \t\r\n\"") == nullptr;
}

}  // namespace

std::string CommandStack::plainName(const std::string& sTyped)
{
    std::string sName = sTyped.substr(std::min(sTyped.find_first_not_of("_.'"), sTyped.size()));
    ::CharUpperBuffA(sName.data(), static_cast<DWORD>(sName.size()));
    return sName;
}

Acad::ErrorStatus CommandStack::addCommand(const char* sGroupName, const char* sGlobalName, const char* sLocalName,
                                           Adesk::Int32, AcRxFunctionPtr functionAddr, AcEdUIContext*, int, HINSTANCE,
                                           AcEdCommand** pCmdPtrRet)
{
    if (pCmdPtrRet != nullptr)
        *pCmdPtrRet = nullptr;
    if (sGroupName == nullptr || *sGroupName == '\0' || !isName(sGlobalName) || !isName(sLocalName) ||
        functionAddr == nullptr)
        return Acad::eInvalidInput;
    for (const Command& command : m_commands)
        if (same(command.group, sGroupName) &&
            (same(command.globalName, sGlobalName) || same(command.localName, sLocalName)))
            return Acad::eDuplicateKey;
    m_commands.push_back({sGroupName, sGlobalName, sLocalName, functionAddr});
    return Acad::eOk;
}

Acad::ErrorStatus CommandStack::removeGroup(const char* sGroupName)
{
    if (sGroupName == nullptr)
        return Acad::eInvalidInput;
    const auto removed =
        std::erase_if(m_commands, [sGroupName](const Command& command) { return same(command.group, sGroupName); });
    return removed != 0 ? Acad::eOk : Acad::eKeyNotFound;
}

AcRxFunctionPtr CommandStack::find(const std::string& sTyped) const
{
    const std::size_t start = std::min(sTyped.find_first_not_of("_.'"), sTyped.size());
    const bool global = sTyped.find('_') < start;
    const std::string sName = sTyped.substr(start);
    // The group that came last is asked first.
    for (auto command = m_commands.rbegin(); command != m_commands.rend(); ++command)
        if (same(global ? command->globalName : command->localName, sName))
            return command->function;
    return nullptr;
}

void CommandStack::removeWhere(const std::function<bool(AcRxFunctionPtr)>& leaves)
{
    std::erase_if(m_commands, [&leaves](const Command& command) { return leaves(command.function); });
}

}  // namespace host
