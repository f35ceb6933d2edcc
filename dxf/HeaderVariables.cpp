#include "dxf/HeaderVariables.h"

namespace dxf {

std::vector<HeaderEntry> headerEntries(const DxfRecord& header)
{
    std::vector<HeaderEntry> entries;
    TagReader reader = header.tags();
    for (DxfTag tag; nextTag(reader, tag);) {
        if (tag.code == 9) {
            entries.push_back({trimmed(tag.value), tag.text, {}});
        } else if (!entries.empty()) {
            HeaderEntry& entry = entries.back();
            entry.values.push_back(tag);
            entry.text = {entry.text.data(), entry.text.size() + tag.text.size()};
        }
    }
    return entries;
}

HeaderEntry headerEntry(const DxfRecord& header, std::string_view name)
{
    for (HeaderEntry& entry : headerEntries(header))
        if (sameName(entry.name, name))
            return entry;
    return {};
}

}  // namespace dxf
