#include "dxf/TagReader.h"

#include <algorithm>
#include <charconv>

namespace dxf {

namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// The group code of a line such as most are: blanks, digits and the line's end. What it is
// in any other takes longer to say; then nothing is cut off the text.
int cutPlainCode(std::string_view& text)
{
    const char* p = text.data();
    const char* const pEnd = p + text.size();
    while (p != pEnd && *p == ' ')
        ++p;
    int code = 0;
    const char* const pDigits = p;
    for (; p != pEnd && *p >= '0' && *p <= '9' && p - pDigits < 4; ++p)
        code = code * 10 + (*p - '0');
    const bool any = p != pDigits;
    p += p != pEnd && *p == '\r' ? 1 : 0;
    if (!any || p == pEnd || *p != '\n')
        return -1;
    text.remove_prefix(static_cast<std::size_t>(p + 1 - text.data()));
    return code;
}

// Cuts the first line, ending included, off the text.
std::string_view cutLine(std::string_view& text)
{
    // A line is short: a call to search it takes longer than the search.
    const auto end = std::find(text.begin(), text.end(), '\n');
    const std::string_view line =
        text.substr(0, static_cast<std::size_t>(end - text.begin()) + (end == text.end() ? 0 : 1));
    text.remove_prefix(line.size());
    return line;
}

std::string_view withoutEnding(std::string_view line)
{
    if (line.ends_with('\n'))
        line.remove_suffix(1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

template <class Number>
Number parsed(std::string_view text)
{
    text = trimmed(text);
    if (text.starts_with('+'))
        text.remove_prefix(1);
    Number value{};
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace

TagReader::Result TagReader::next(DxfTag& tag)
{
    std::string_view rest = m_rest;
    int code = cutPlainCode(rest);
    if (code < 0) {
        const std::string_view digits = trimmed(cutLine(rest));
        const auto [pEnd, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code);
        if (digits.empty() && trimmed(rest).empty())
            return Result::End;
        if (digits.empty() || error != std::errc() || pEnd != digits.data() + digits.size())
            return Result::BadCode;
    }
    if (rest.empty())
        return Result::NoValue;
    const std::string_view codeLine = m_rest.substr(0, m_rest.size() - rest.size());
    const std::string_view valueLine = cutLine(rest);
    tag = {code, withoutEnding(valueLine), codeLine, m_rest.substr(0, codeLine.size() + valueLine.size())};
    m_rest = rest;
    return Result::Tag;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

int toInt(std::string_view text) { return parsed<int>(text); }

double toDouble(std::string_view text) { return parsed<double>(text); }

unsigned long long toHandle(std::string_view text)
{
    text = trimmed(text);
    unsigned long long value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, 16);
    return value;
}

}  // namespace dxf
