#include "host/drawing/Paths.h"

#include "library/system/Handles.h"

#include <shlwapi.h>

#include <iterator>

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
    // The narrow call may know no form that is too long to be opened.
    wchar_t wide[1024], full[1024];
    char text[1024];
    if (::MultiByteToWideChar(CP_ACP, 0, sPath.c_str(), -1, wide, std::ssize(wide)) == 0)
        return sPath;
    const DWORD length = ::GetFullPathNameW(wide, std::size(full), full, nullptr);
    if (length == 0 || length >= std::size(full) ||
        ::WideCharToMultiByte(CP_ACP, 0, full, -1, text, sizeof text, nullptr, nullptr) == 0)
        return sPath;
    return text;
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
