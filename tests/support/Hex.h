#pragma once

// Bytes as they stand in a test: hexadecimal, with or without blanks.

#include <string>
#include <string_view>

inline std::string bytesOf(std::string_view hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2 + (i + 2 < hex.size() && hex[i + 2] == ' '))
        bytes += static_cast<char>(std::stoi(std::string(hex.substr(i, 2)), nullptr, 16));
    return bytes;
}
