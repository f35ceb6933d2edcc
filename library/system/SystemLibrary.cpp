#include "library/system/SystemLibrary.h"

#include <cstring>

namespace Tesk {

UniqueModule loadSystemLibrary(const char* sName)
{
    char sPath[MAX_PATH] = "";
    const UINT uLength = ::GetSystemDirectoryA(sPath, MAX_PATH);
    if (uLength == 0 || uLength + 1 + std::strlen(sName) >= MAX_PATH)
        return {};
    sPath[uLength] = '\\';
    std::strcpy(sPath + uLength + 1, sName);
    return UniqueModule(::LoadLibraryExA(sPath, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
}

}  // namespace Tesk
