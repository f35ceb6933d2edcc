#pragma once

// Compression for pictures: a zlib stream that shortens runs of one byte.

#include <cstdint>
#include <string>

namespace host::observation {

std::string zlibCompressed(const std::string& data);
std::uint32_t crc32(const std::string& data);

}  // namespace host::observation
