#include "dxf/TagReader.h"

#include <algorithm>
#include <charconv>

namespace dxf {

namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// Cuts the first line off the text, and gives it without blanks.
std::string_view cutLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return trimmed(line);
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
    // Reading a drawing is mostly this, so it is done by pointers. Nearly every first line is
    // blanks, digits and the line's end.
    const char* p = m_rest.data();
    const char* const pEnd = p + m_rest.size();
    while (p != pEnd && *p == ' ')
        ++p;
    const char* const pDigits = p;
    int code = 0;
    for (; p != pEnd && *p >= '0' && *p <= '9' && p - pDigits < 4; ++p)
        code = code * 10 + (*p - '0');
    const bool any = p != pDigits;
    p += p != pEnd && *p == '\r' ? 1 : 0;
    if (any && p != pEnd && *p == '\n') {
        ++p;
    } else {
        std::string_view rest = m_rest;
        const std::string_view digits = cutLine(rest);
        const auto [pLast, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code);
        if (digits.empty() && trimmed(rest).empty())
            return Result::End;
        if (digits.empty() || error != std::errc() || pLast != digits.data() + digits.size())
            return Result::BadCode;
        p = rest.data();
    }
    if (p == pEnd)
        return Result::NoValue;
    const char* const pValue = p;
    while (p != pEnd && *p != '\n')
        ++p;
    const char* const pBreak = p;
    p += p != pEnd ? 1 : 0;
    const bool ends = pBreak != pValue && pBreak[-1] == '\r';
    tag.code = code;
    tag.value = {pValue, static_cast<std::size_t>(pBreak - pValue) - (ends ? 1 : 0)};
    tag.text = {m_rest.data(), static_cast<std::size_t>(p - m_rest.data())};
    m_rest = {p, static_cast<std::size_t>(pEnd - p)};
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
