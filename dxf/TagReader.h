#pragma once

// Walks the tags of a stretch of DXF text. A tag is two lines: a group code and
// a value. Nothing is copied; every view points into the text.

#include <cstddef>
#include <string_view>

namespace dxf {

struct DxfTag {
    int code = 0;
    std::string_view value;  // without its line ending
    std::string_view text;   // the bytes of both lines, line endings included
};

class TagReader {
public:
    explicit TagReader(std::string_view text) : m_rest(text) {}

    enum class Result { Tag, End, BadCode, NoValue };

    // Reads the next tag. After anything but Tag the reader stays where it is;
    // blank lines at the very end of the text count as its end.
    Result next(DxfTag& tag);

    std::string_view rest() const { return m_rest; }

private:
    std::string_view m_rest;
};

// The same, for text that is known to be well formed.
inline bool nextTag(TagReader& reader, DxfTag& tag) { return reader.next(tag) == TagReader::Result::Tag; }

std::string_view trimmed(std::string_view text);
// 0 for text that is no number.
int toInt(std::string_view text);
double toDouble(std::string_view text);
unsigned long long toHandle(std::string_view text);

}  // namespace dxf
