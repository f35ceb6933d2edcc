#pragma once

// Variables in a drawing's HEADER section, which is one record: a group 9 tag
// with the name ("$" included), then its values.

#include "dxf/DxfFile.h"

#include <string_view>
#include <vector>

namespace dxf {

struct HeaderEntry {
    std::string_view name;
    // Name and values, byte for byte.
    std::string_view text;
    std::vector<DxfTag> values;
};

std::vector<HeaderEntry> headerEntries(const DxfRecord& header);
// The first entry of the name; one without a name when there is none.
HeaderEntry headerEntry(const DxfRecord& header, std::string_view name);

}  // namespace dxf
