#include "library/files/FileCleanup.h"

#include "library/system/Handles.h"

#include <windows.h>

#include <cstring>

namespace Tesk {

namespace {

// How many files match, and which is the oldest.
int findOldest(const char* sPattern, WIN32_FIND_DATAA& oldest)
{
    WIN32_FIND_DATAA found = {};
    const UniqueFind search(::FindFirstFileA(sPattern, &found));
    int iCount = 0;
    for (bool bMore = static_cast<bool>(search); bMore; bMore = ::FindNextFileA(search.get(), &found) != FALSE) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            continue;
        if (iCount++ == 0 || ::CompareFileTime(&found.ftLastWriteTime, &oldest.ftLastWriteTime) < 0)
            oldest = found;
    }
    return iCount;
}

}  // namespace

void keepNewestFiles(const char* sPattern, int iKeep) noexcept
{
    char sFile[MAX_PATH * 2] = "";
    const char* const sSlash = std::strrchr(sPattern, '\\');
    const std::size_t folder = sSlash ? static_cast<std::size_t>(sSlash + 1 - sPattern) : 0;
    WIN32_FIND_DATAA oldest = {};
    if (folder >= sizeof sFile - sizeof oldest.cFileName)
        return;
    std::memcpy(sFile, sPattern, folder);
    while (findOldest(sPattern, oldest) > iKeep) {
        std::strcpy(sFile + folder, oldest.cFileName);
        if (!::DeleteFileA(sFile))
            break;
    }
}

}  // namespace Tesk
