#pragma once

// The commands that modules register, in groups.

#include "objectarx/aced.h"

#include <functional>
#include <string>
#include <vector>

namespace host {

class CommandStack final : public AcEdCommandStack {
public:
    static constexpr std::size_t kMaxName = 64;

    // eInvalidInput for an empty or overlong name, one with blanks, or no function.
    Acad::ErrorStatus addCommand(const char* sGroupName, const char* sGlobalName, const char* sLocalName,
                                 Adesk::Int32 iFlags, AcRxFunctionPtr functionAddr, AcEdUIContext* pUIContext = nullptr,
                                 int iFCode = -1, HINSTANCE hResourceHandle = nullptr,
                                 AcEdCommand** pCmdPtrRet = nullptr) override;
    Acad::ErrorStatus removeGroup(const char* sGroupName) override;

    // By local name, or by global name after a leading underscore; any case. A
    // period, or an apostrophe for transparent commands, may lead too. Null for
    // an unknown name.
    AcRxFunctionPtr find(const std::string& sTyped) const;
    // Drops the commands whose functions the predicate names.
    void removeWhere(const std::function<bool(AcRxFunctionPtr)>& leaves);

    // The name as typed, without what may lead it, in upper case.
    static std::string plainName(const std::string& sTyped);

private:
    struct Command {
        std::string group;
        std::string globalName;
        std::string localName;
        AcRxFunctionPtr function;
    };
    std::vector<Command> m_commands;
};

}  // namespace host
