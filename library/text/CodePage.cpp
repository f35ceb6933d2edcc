#include "library/text/CodePage.h"

#include <climits>

namespace Tesk {

namespace {

bool askFamily()
{
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
    return ::GetVersionExA(&info) && info.dwPlatformId == VER_PLATFORM_WIN32_NT;
}

const bool g_bNtFamily = askFamily();

}  // namespace

bool isNtFamily() { return g_bNtFamily; }

UINT getThreadCodePage()
{
    if (isNtFamily()) {
        DWORD dwCodePage = 0;
        if (::GetLocaleInfoA(::GetThreadLocale(), LOCALE_IDEFAULTANSICODEPAGE | LOCALE_RETURN_NUMBER,
                             reinterpret_cast<char*>(&dwCodePage), sizeof dwCodePage) > 0 &&
            dwCodePage != 0)
            return dwCodePage;
    }
    return ::GetACP();
}

std::wstring toWide(std::string_view sText)
{
    std::wstring sWide;
    if (sText.empty() || sText.size() > INT_MAX)
        return sWide;
    const int iBytes = static_cast<int>(sText.size());
    sWide.resize(sText.size());  // never more characters than bytes
    const int iCount = ::MultiByteToWideChar(getThreadCodePage(), 0, sText.data(), iBytes, sWide.data(), iBytes);
    sWide.resize(iCount > 0 ? static_cast<std::size_t>(iCount) : 0);
    return sWide;
}

std::string toNarrow(std::wstring_view sText)
{
    std::string sNarrow;
    if (sText.empty() || sText.size() > INT_MAX)
        return sNarrow;
    const int iUnits = static_cast<int>(sText.size());
    const UINT uCodePage = getThreadCodePage();
    const int iSize = ::WideCharToMultiByte(uCodePage, 0, sText.data(), iUnits, nullptr, 0, nullptr, nullptr);
    if (iSize <= 0)
        return sNarrow;
    sNarrow.resize(static_cast<std::size_t>(iSize));
    ::WideCharToMultiByte(uCodePage, 0, sText.data(), iUnits, sNarrow.data(), iSize, nullptr, nullptr);
    return sNarrow;
}

}  // namespace Tesk
