#include "library/files/FileSearch.h"

#include "library/diagnostics/Prerelease.h"
#include "library/files/PathParts.h"
#include "library/system/Handles.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"

#include <windows.h>

#include <string>

namespace Tesk {

namespace {

UniqueHandle openExisting(const char* sPath, DWORD dwFlags)
{
    return UniqueHandle(::CreateFileA(sPath, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                      dwFlags, nullptr));
}

}  // namespace

bool fileExists(const char* sPath) { return static_cast<bool>(openExisting(sPath, FILE_ATTRIBUTE_NORMAL)); }

bool folderExists(const char* sPath)
{
    if (isNtFamily()) {
        // Backup semantics open folders, but files as well: those are told by their attributes.
        const DWORD dwAttributes = ::GetFileAttributesA(sPath);
        return dwAttributes != INVALID_FILE_ATTRIBUTES && (dwAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
               openExisting(sPath, FILE_FLAG_BACKUP_SEMANTICS);
    }
    char sCurrent[MAX_PATH];
    const DWORD length = ::GetCurrentDirectoryA(sizeof sCurrent, sCurrent);
    if (length == 0 || length >= sizeof sCurrent || !::SetCurrentDirectoryA(sPath))
        return false;
    TESK_VERIFY(::SetCurrentDirectoryA(sCurrent));
    return true;
}

CString findFolderUpwards(const char* sStart, const char* sFileName)
{
    std::string sFolder = withoutBackslash(sStart);
    while (!fileExists((sFolder + "\\" + sFileName).c_str())) {
        sFolder = withoutBackslash(sFolder);
        const std::string sParent = CPathParts(sFolder).parent();
        if (MultiByte::equalNoCase(sParent, sFolder))
            return {};
        sFolder = sParent;
    }
    return withBackslash(sFolder).c_str();
}

}  // namespace Tesk
