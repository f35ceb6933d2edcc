#include "dwg/DxfWriter.h"

#include <windows.h>

#include <charconv>
#include <cmath>
#include <numbers>

namespace dwg {

template <class Number, class... Base>
void DxfWriter::line(Number value, Base... base)
{
    char digits[32];
    m_text.append(digits, std::to_chars(digits, digits + sizeof digits, value, base...).ptr) += '\n';
}

void DxfWriter::name(int code, std::string_view name)
{
    line(code);
    m_text.append(name) += '\n';
}

void DxfWriter::text(int code, std::string_view text)
{
    line(code);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const auto byte = static_cast<unsigned char>(c);
        if (m_page != 0 && i + 1 < text.size() && IsDBCSLeadByteEx(m_page, byte)) {
            m_text += c;
            const char second = text[++i];
            m_text += static_cast<unsigned char>(second) < 0x20 ? '?' : second;
        } else if (c == '^') {
            m_text += "^ ";
        } else if (byte < 0x20) {
            m_text += {'^', static_cast<char>(c + '@')};
        } else {
            m_text += c;
        }
    }
    m_text += '\n';
}

void DxfWriter::handle(int code, std::uint64_t handle)
{
    line(code);
    line(handle, 16);
}

void DxfWriter::integer(int code, long long value)
{
    line(code);
    line(value);
}

void DxfWriter::number(int code, double value)
{
    line(code);
    line(std::isfinite(value) ? value : 0.0);
}

void DxfWriter::angle(int code, double radians)
{
    const double degrees = std::fmod(radians * 180.0 / std::numbers::pi, 360.0);
    number(code, degrees < 0.0 ? degrees + 360.0 : degrees);
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
