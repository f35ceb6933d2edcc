#pragma once

// Text values between a drawing file's encoding and the thread's ANSI code page,
// which is what the API speaks.

#include <string>
#include <string_view>

namespace dxf {

class DxfText {
public:
    // For a file without a word about it: western ANSI.
    DxfText() = default;
    // By the file's version and the name of its code page.
    DxfText(std::string_view version, std::string_view codePageName);

    // \U+XXXX escapes and caret control characters are resolved; a character that
    // the ANSI code page lacks comes as its \U+XXXX escape.
    std::string decode(std::string_view raw) const;
    // The other way; the result is one line.
    std::string encode(std::string_view text) const;

    // The name of the thread's ANSI code page, as drawings write it.
    static std::string ansiName();

private:
    unsigned m_codePage = 1252;
};

// The name of a block, layer or variable as the host compares names: letters of ASCII without
// case, but for the second byte of a character, which may look like one.
std::string foldedName(std::string_view name);
bool sameName(std::string_view a, std::string_view b);

}  // namespace dxf
