// What a link leads to; apart from the control, for programs without windows.

#include "library/controls/HyperLink.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <string_view>

namespace {

// The system's own code does not bear an address of any length.
constexpr std::size_t kLongest = 255;

bool startsWith(std::string_view sText, std::string_view sPrefix)
{
    return sText.size() > sPrefix.size() && Tesk::MultiByte::equalNoCase(sText.substr(0, sPrefix.size()), sPrefix);
}

bool hasBlankOrControl(std::string_view sText)
{
    for (const char c : sText)
        if (static_cast<unsigned char>(c) <= ' ' || c == '"')
            return true;
    return false;
}

// One name@place, and neither a scheme nor a path nor fields behind it.
bool isMailAddress(std::string_view sText)
{
    const auto at = sText.find('@');
    return at != std::string_view::npos && at > 0 && at + 1 < sText.size() &&
           sText.find_first_of("@:/\\?%,;<>", at + 1) == std::string_view::npos &&
           sText.substr(0, at).find_first_of(":/\\?%,;<>") == std::string_view::npos;
}

}  // namespace

CString CHyperLink::getTarget(const CString& sAddress)
{
    const std::string_view sText = Tesk::MultiByte::trim(Tesk::viewOf(sAddress));
    if (sText.size() > kLongest || hasBlankOrControl(sText))
        return CString();
    if (startsWith(sText, "http://") || startsWith(sText, "https://"))
        return Tesk::toCString(sText);
    if (startsWith(sText, "www."))
        return "http://" + Tesk::toCString(sText);
    if (startsWith(sText, "mailto:"))
        return isMailAddress(sText.substr(7)) ? Tesk::toCString(sText) : CString();
    return isMailAddress(sText) ? "mailto:" + Tesk::toCString(sText) : CString();
}
