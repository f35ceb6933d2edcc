#include "dwg/DxfWriter.h"

#include <windows.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace dwg {

namespace {

// So far a number counts as one of few decimals.
constexpr double kMost = 1e5;
constexpr int kParts = 10'000;

template <class... Base>
char* put(char* p, auto value, Base... base)
{
    return std::to_chars(p, p + 32, value, base...).ptr;
}

char* putParts(char* p, int parts)
{
    if (parts < 0)
        *p++ = '-';
    const int size = std::abs(parts);
    p = put(p, size / kParts);
    if (size % kParts == 0)
        return p;
    char* pEnd = put(p, kParts + size % kParts);
    *p = '.';
    while (pEnd[-1] == '0')
        --pEnd;
    return pEnd;
}

}  // namespace

template <class Put>
void DxfWriter::tag(int code, Put putValue)
{
    char lines[96];
    char* p = put(lines, code);
    *p++ = '\n';
    p = putValue(p);
    *p++ = '\n';
    m_text.append(lines, static_cast<std::size_t>(p - lines));
}

void DxfWriter::name(int code, std::string_view name)
{
    m_text.append(std::to_string(code)) += '\n';
    m_text.append(name) += '\n';
}

void DxfWriter::text(int code, std::string_view text)
{
    const auto isMark = [](char c) { return c == '^' || static_cast<unsigned char>(c) < 0x20; };
    if (m_page == 0 && std::none_of(text.begin(), text.end(), isMark))
        return name(code, text);
    std::string sMarked;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        sMarked += isMark(c) ? '^' : c;
        if (isMark(c)) {
            sMarked += c == '^' ? ' ' : static_cast<char>(c + '@');
        } else if (m_page != 0 && i + 1 < text.size() && IsDBCSLeadByteEx(m_page, static_cast<BYTE>(c))) {
            const char second = text[++i];
            sMarked += static_cast<unsigned char>(second) < 0x20 ? '?' : second;
        }
    }
    name(code, sMarked);
}

void DxfWriter::handle(int code, std::uint64_t handle)
{
    tag(code, [handle](char* p) { return put(p, handle, 16); });
}

void DxfWriter::integer(int code, long long value)
{
    tag(code, [value](char* p) { return put(p, value); });
}

void DxfWriter::number(int code, double value)
{
    // Most have few decimals. Such a one takes less time, and reads as the very same.
    const int parts = std::abs(value) < kMost ? static_cast<int>(value * kParts) : 0;
    const bool same = static_cast<double>(parts) / kParts == value;
    tag(code, [&](char* p) { return same ? putParts(p, parts) : put(p, std::isfinite(value) ? value : 0.0); });
}

void DxfWriter::angle(int code, double radians)
{
    const double degrees = radians * 180.0 / std::numbers::pi;
    const double within = std::abs(degrees) < 360.0 ? degrees : std::fmod(degrees, 360.0);
    number(code, within < 0.0 ? within + 360.0 : within);
}

void DxfWriter::point(int code, const Point& p)
{
    point(code, p.x, p.y);
    number(code + 20, p.z);
}

void DxfWriter::point(int code, double x, double y)
{
    number(code, x);
    number(code + 10, y);
}

}  // namespace dwg
