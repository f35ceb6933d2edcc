#pragma once

// How sections are packed: from 2004 on, and in 2007.

#include <cstddef>
#include <string>
#include <string_view>

namespace dwg {

// Throws Unreadable for what does not unpack, or not to this size at most.
std::string unpack(std::string_view packed, std::size_t most);
std::string unpack2007(std::string_view packed, std::size_t most);

}  // namespace dwg
