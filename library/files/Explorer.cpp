#include "library/files/Explorer.h"

#include "library/files/FileSearch.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <shellapi.h>

#include <string>

namespace Tesk {

namespace {

// By its place: one that lies beside a drawing is not meant.
std::string explorer()
{
    char sFolder[MAX_PATH] = "";
    ::GetSystemWindowsDirectoryA(sFolder, sizeof sFolder);
    return std::string(sFolder) + "\\explorer.exe";
}

}  // namespace

bool showInExplorer(HWND hOwner, const CString& sFile)
{
    const std::string sPath = toString(sFile);
    const std::string sFolder = sPath.substr(0, MultiByte::findLastOf(sPath, "\\/") + 1);
    std::string sArguments;
    if (fileExists(sPath.c_str()))
        sArguments = "/select,\"" + sPath + "\"";
    else if (folderExists(sFolder.c_str()))
        sArguments = "\"" + sFolder.substr(0, sFolder.size() - 1) + "\"";  // a backslash would take the quote
    else
        return false;
    const HINSTANCE result =
        ::ShellExecuteA(hOwner, "open", explorer().c_str(), sArguments.c_str(), nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
}

}  // namespace Tesk
