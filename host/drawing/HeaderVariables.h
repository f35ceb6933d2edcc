#pragma once

// Variables in a drawing's HEADER section, which is one record: a group 9 tag
// with the name ("$" included), then its values.

#include "host/drawing/DxfFile.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace host {

struct HeaderEntry {
    std::string_view name;
    // Name and values, byte for byte.
    std::string_view text;
    std::vector<DxfTag> values;
};

std::vector<HeaderEntry> headerEntries(const DxfRecord& header);
// The first entry of the name; one without a name when there is none.
HeaderEntry headerEntry(const DxfRecord& header, std::string_view name);

// The header's text with the stretch of one entry replaced.
std::string withEntryText(const DxfRecord& header, const HeaderEntry& entry, std::string_view text);
// An entry's text with other values in the same tags.
std::string withValues(const HeaderEntry& entry, const std::vector<std::string>& values);
// The text of a new entry.
std::string entryText(const DxfFile& file, std::string_view name, int code, std::string_view value);

}  // namespace host
