#include "library/network/UniversalName.h"

#include "library/text/StringView.h"

#include <windows.h>
#include <winnetwk.h>

#include <string>

namespace Tesk::Network {

CString getUniversalName(const CString& sPath)
{
    const std::string sLocal = toString(sPath);
    if (sLocal.size() < 3 || sLocal.compare(1, 2, ":\\") != 0)
        return sPath;
    char sShare[MAX_PATH] = "";
    DWORD dwSize = sizeof sShare;
    if (::WNetGetConnectionA(sLocal.substr(0, 2).c_str(), sShare, &dwSize) != NO_ERROR || sShare[0] != '\\')
        return sPath;
    return toCString(sShare + sLocal.substr(2));
}

}  // namespace Tesk::Network
