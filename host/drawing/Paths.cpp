#include "host/drawing/Paths.h"

#include "library/system/Handles.h"

#include <shlwapi.h>

namespace host {

namespace {

// Past the last separator.
std::size_t nameStart(const std::string& sPath)
{
    return static_cast<std::size_t>(::PathFindFileNameA(sPath.c_str()) - sPath.c_str());
}

}  // namespace

std::string fullPath(const std::string& sPath)
{
    char buffer[1024];
    const DWORD length = ::GetFullPathNameA(sPath.c_str(), sizeof buffer, buffer, nullptr);
    return length == 0 || length >= sizeof buffer ? sPath : std::string(buffer, length);
}

std::string folderOf(const std::string& sPath) { return sPath.substr(0, nameStart(sPath)); }

std::string nameOf(const std::string& sPath) { return sPath.substr(nameStart(sPath)); }

std::string baseNameOf(const std::string& sPath)
{
    const std::string sName = nameOf(sPath);
    return sName.substr(0, sName.rfind('.'));
}

bool fileExists(const std::string& sPath)
{
    const DWORD attributes = ::GetFileAttributesA(sPath.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool isWriteProtected(const std::string& sPath)
{
    if (!fileExists(sPath))
        return false;
    if ((::GetFileAttributesA(sPath.c_str()) & FILE_ATTRIBUTE_READONLY) != 0)
        return true;
    const UniqueHandle file(::CreateFileA(sPath.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return !file;
}

}  // namespace host
