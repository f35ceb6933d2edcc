#include "library/system/ComputerName.h"

#include <windows.h>

namespace Tesk {

std::string getComputerName()
{
    char sName[MAX_COMPUTERNAME_LENGTH + 1] = "";
    DWORD dwSize = sizeof sName;
    return ::GetComputerNameA(sName, &dwSize) ? sName : "";
}

}  // namespace Tesk
