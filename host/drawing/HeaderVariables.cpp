#include "host/drawing/HeaderVariables.h"

namespace host {

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

std::string withEntryText(const DxfRecord& header, const HeaderEntry& entry, std::string_view text)
{
    const std::string_view whole = header.text();
    const std::size_t at = static_cast<std::size_t>(entry.text.data() - whole.data());
    return std::string(whole.substr(0, at)) + std::string(text) + std::string(whole.substr(at + entry.text.size()));
}

std::string withValues(const HeaderEntry& entry, const std::vector<std::string>& values)
{
    std::string sText(entry.text);
    // From the last to the first, so that the positions before stay good.
    for (std::size_t i = values.size(); i-- > 0;) {
        const std::string_view old = entry.values[i].value;
        sText.replace(static_cast<std::size_t>(old.data() - entry.text.data()), old.size(), values[i]);
    }
    return sText;
}

std::string entryText(const DxfFile& file, std::string_view name, int code, std::string_view value)
{
    return file.tag(9, name) + file.tag(code, value);
}

}  // namespace host
