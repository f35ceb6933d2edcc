#include "dwg/Bits.h"

#include <windows.h>

#include <algorithm>
#include <bit>

namespace dwg {

Bits::Bits(std::string_view bytes, std::size_t begin, std::size_t end)
    : m_bytes(reinterpret_cast<const unsigned char*>(bytes.data())), m_at(begin), m_end(std::min(end, bytes.size() * 8))
{
    if (m_at > m_end || end != m_end)
        fail();
}

void Bits::skip(std::size_t count)
{
    if (count > left())
        fail();
    else
        m_at += count;
}

Bits Bits::first(std::size_t count) const
{
    Bits part = *this;
    part.m_end = m_at + std::min(count, left());
    return part;
}

std::uint64_t Bits::raw(unsigned bytes)
{
    if (bytes * 8 > left()) {
        fail();
        return 0;
    }
    const unsigned char* pByte = m_bytes + m_at / 8;
    const unsigned shift = m_at % 8;
    m_at += bytes * 8;
    std::uint64_t value = 0;
    for (unsigned place = 0; place < bytes * 8; place += 8, ++pByte) {
        const unsigned window = unsigned{pByte[0]} << 8 | (shift != 0 ? pByte[1] : 0U);
        value |= std::uint64_t{window >> (8 - shift) & 0xFF} << place;
    }
    return value;
}

double Bits::rd() { return std::bit_cast<double>(raw(8)); }

unsigned Bits::bs()
{
    const unsigned code = bb();
    return code == 0 ? rs() : code == 1 ? rc() : code == 2 ? 0 : 256;
}

std::uint32_t Bits::bl()
{
    const unsigned code = bb();
    if (code == 3)
        fail();
    return code == 0 ? rl() : code == 1 ? rc() : 0;
}

double Bits::bd()
{
    const unsigned code = bb();
    if (code == 3)
        fail();
    return code == 0 ? rd() : code == 1 ? 1.0 : 0.0;
}

double Bits::dd(double otherwise)
{
    const unsigned code = bb();
    if (code == 3)
        return rd();
    auto bytes = std::bit_cast<std::uint64_t>(otherwise);
    if (code == 2)
        bytes = (bytes & ~(std::uint64_t{0xFFFF} << 32)) | raw(2) << 32;
    if (code != 0)
        bytes = (bytes & ~std::uint64_t{0xFFFFFFFF}) | raw(4);
    return std::bit_cast<double>(bytes);
}

unsigned Bits::ot()
{
    const unsigned code = bb();
    return code == 0 ? rc() : code == 1 ? rc() + 0x1F0 : rs();
}

std::uint64_t Bits::modular(bool hasSign)
{
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const unsigned byte = rc();
        const bool last = (byte & 0x80) == 0;
        value |= std::uint64_t{byte & (last && hasSign ? 0x3FU : 0x7FU)} << shift;
        if (last)
            return hasSign && (byte & 0x40) != 0 ? 0 - value : value;
    }
    fail();
    return 0;
}

std::uint32_t Bits::ms()
{
    const unsigned low = rs();
    return (low & 0x8000) == 0 ? low : (low & 0x7FFF) | (rs() & 0x7FFF) << 15;
}

std::uint32_t Bits::count(std::uint32_t number, std::size_t bitsOfEach)
{
    if (number <= left() / bitsOfEach)
        return number;
    fail();
    return 0;
}

Bits::Handle Bits::h()
{
    Handle handle;
    handle.code = bits(4);
    const unsigned count = bits(4);
    if (count > 8)
        fail();
    for (unsigned i = 0; i < count; ++i)
        handle.value = handle.value << 8 | rc();
    return handle;
}

std::string Bits::text(std::uint32_t length, bool wide)
{
    if (!wide) {
        std::string result(count(length, 8), '\0');
        for (char& c : result)
            c = static_cast<char>(rc());
        return result.substr(0, result.find('\0'));
    }
    std::wstring characters(count(length, 16), L'\0');
    for (wchar_t& c : characters)
        c = static_cast<wchar_t>(rs());
    characters.resize(std::min(characters.find(L'\0'), characters.size()));
    std::string result(characters.size() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, characters.data(), static_cast<int>(characters.size()),
                                         result.data(), static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(size));
    return result;
}

}  // namespace dwg
