#include "dwg/Bits.h"

#include <algorithm>
#include <cstring>

namespace dwg {

namespace {

double asDouble(std::uint64_t value)
{
    double result = 0.0;
    std::memcpy(&result, &value, sizeof result);
    return result;
}

std::uint64_t asNumber(double value)
{
    std::uint64_t result = 0;
    std::memcpy(&result, &value, sizeof result);
    return result;
}

}  // namespace

Bits::Bits(std::string_view bytes, std::size_t begin, std::size_t end)
    : m_bytes(reinterpret_cast<const unsigned char*>(bytes.data())), m_at(begin), m_end(std::min(end, bytes.size() * 8))
{
    if (m_at > m_end || end != m_end)
        fail();
}

void Bits::fail()
{
    m_failed = true;
    m_at = m_end;
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

std::uint32_t Bits::bits(unsigned count)
{
    if (count > left()) {
        fail();
        return 0;
    }
    const unsigned char* pByte = m_bytes + m_at / 8;
    const unsigned needed = m_at % 8 + count;
    m_at += count;
    std::uint64_t window = 0;
    unsigned have = 0;
    for (; have < needed; have += 8)
        window = window << 8 | *pByte++;
    return static_cast<std::uint32_t>(window >> (have - needed) & ((std::uint64_t{1} << count) - 1));
}

unsigned Bits::rs()
{
    const unsigned value = bits(16);
    return value >> 8 | (value & 0xFF) << 8;
}

std::uint32_t Bits::rl()
{
    const std::uint32_t value = bits(32);
    return value >> 24 | (value >> 8 & 0xFF00) | (value & 0xFF00) << 8 | value << 24;
}

std::uint64_t Bits::rll()
{
    const std::uint64_t low = rl();
    return low | std::uint64_t{rl()} << 32;
}

double Bits::rd() { return asDouble(rll()); }

unsigned Bits::bs()
{
    switch (bb()) {
    case 0:
        return rs();
    case 1:
        return rc();
    case 2:
        return 0;
    default:
        return 256;
    }
}

std::uint32_t Bits::bl()
{
    switch (bb()) {
    case 0:
        return rl();
    case 1:
        return rc();
    case 3:
        fail();
        [[fallthrough]];
    default:
        return 0;
    }
}

std::uint64_t Bits::bll()
{
    std::uint64_t value = 0;
    const unsigned count = bits(3);
    for (unsigned i = 0; i < count; ++i)
        value |= std::uint64_t{rc()} << (8 * i);
    return value;
}

double Bits::bd()
{
    switch (bb()) {
    case 0:
        return rd();
    case 1:
        return 1.0;
    case 3:
        fail();
        [[fallthrough]];
    default:
        return 0.0;
    }
}

double Bits::dd(double otherwise)
{
    std::uint64_t value = asNumber(otherwise);
    switch (bb()) {
    case 0:
        return otherwise;
    case 1:
        return asDouble((value & ~std::uint64_t{0xFFFFFFFF}) | rl());
    case 2:
        value = (value & ~(std::uint64_t{0xFFFF} << 32)) | std::uint64_t{rs()} << 32;
        return asDouble((value & ~std::uint64_t{0xFFFFFFFF}) | rl());
    default:
        return rd();
    }
}

unsigned Bits::ot()
{
    switch (bb()) {
    case 0:
        return rc();
    case 1:
        return rc() + 0x1F0;
    default:
        return rs();
    }
}

std::int64_t Bits::mc()
{
    std::int64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const unsigned byte = rc();
        if ((byte & 0x80) == 0) {
            value |= std::int64_t{byte & 0x3F} << shift;
            return (byte & 0x40) != 0 ? -value : value;
        }
        value |= std::int64_t{byte & 0x7F} << shift;
    }
    fail();
    return 0;
}

std::uint64_t Bits::umc()
{
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
        const unsigned byte = rc();
        value |= std::uint64_t{byte & 0x7F} << shift;
        if ((byte & 0x80) == 0)
            return value;
    }
    fail();
    return 0;
}

std::uint32_t Bits::ms()
{
    const unsigned low = rs();
    if ((low & 0x8000) == 0)
        return low;
    const unsigned high = rs();
    if ((high & 0x8000) != 0)
        fail();
    return (low & 0x7FFF) | (high & 0x7FFF) << 15;
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

}  // namespace dwg
