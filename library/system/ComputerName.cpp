#include "library/system/ComputerName.h"

#include <windows.h>

namespace Tesk {

// A registry key of its own, for a name that stays while the system runs: asked for once.
std::string getComputerName()
{
    static const std::string sName = [] {
        char sAnswer[MAX_COMPUTERNAME_LENGTH + 1] = "";
        DWORD dwSize = sizeof sAnswer;
        return std::string(::GetComputerNameA(sAnswer, &dwSize) ? sAnswer : "");
    }();
    return sName;
}

}  // namespace Tesk
