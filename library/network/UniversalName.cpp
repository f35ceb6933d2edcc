#include "library/network/UniversalName.h"

#include "library/text/StringView.h"

#include <windows.h>
#include <winnetwk.h>

#include <string>

namespace Tesk::Network {

namespace {

// "\\server\share" that the drive ("N:") stands for, or empty.
std::string connectionOf(const std::string& sDrive)
{
    std::string sRemote(MAX_PATH, '\0');
    for (;;) {
        auto size = static_cast<DWORD>(sRemote.size());
        const DWORD dwResult = ::WNetGetConnectionA(sDrive.c_str(), sRemote.data(), &size);
        if (dwResult == NO_ERROR)
            return sRemote.c_str();  // as far as it is filled
        if (dwResult != ERROR_MORE_DATA || size <= sRemote.size())
            return std::string();
        sRemote.resize(size);
    }
}

}  // namespace

CString getUniversalName(const CString& sPath)
{
    const std::string sLocal = toString(sPath);
    if (sLocal.size() < 3 || sLocal.compare(1, 2, ":\\") != 0)
        return sPath;
    const std::string sShare = connectionOf(sLocal.substr(0, 2));
    return sShare.compare(0, 2, "\\\\") == 0 ? toCString(sShare + sLocal.substr(2)) : sPath;
}

}  // namespace Tesk::Network
