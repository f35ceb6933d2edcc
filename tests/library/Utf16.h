#pragma once

// Wide text as the bytes of a file.

#include <string>

// UTF-16 little-endian bytes, with the byte-order mark.
inline std::string utf16(const std::wstring& sText)
{
    std::string sBytes = "\xFF\xFE";
    for (const wchar_t c : sText) {
        sBytes += static_cast<char>(c & 0xFF);
        sBytes += static_cast<char>(c >> 8);
    }
    return sBytes;
}
