#pragma once

// Letters without case where only those of ASCII count: keywords and names of formats.

#include <string>
#include <string_view>

namespace Tesk {

constexpr char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

inline std::string upperAscii(std::string_view sText)
{
    std::string sUpper(sText);
    for (char& c : sUpper)
        c = upperAscii(c);
    return sUpper;
}

}  // namespace Tesk
