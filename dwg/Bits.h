#pragma once

// The coded values of a drawing, read bit by bit, the most significant one of a byte first.
// Behind the end all values are 0, and the reader has failed: whoever reads asks once, when
// he is done. Names are those of the codes.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dwg {

class Bits {
public:
    Bits() = default;
    // From a bit up to another one, counted from the first of the bytes.
    explicit Bits(std::string_view bytes) : Bits(bytes, 0, bytes.size() * 8) {}
    Bits(std::string_view bytes, std::size_t begin, std::size_t end);

    bool failed() const { return m_failed; }
    void fail()
    {
        m_failed = true;
        m_at = m_end;
    }
    std::size_t position() const { return m_at; }
    std::size_t left() const { return m_end - m_at; }
    void skip(std::size_t count);
    // What follows, up to so many bits.
    Bits first(std::size_t count) const;

    // Up to 8.
    unsigned bits(unsigned count)
    {
        if (count > left()) {
            fail();
            return 0;
        }
        const unsigned char* const pByte = m_bytes + m_at / 8;
        const unsigned needed = m_at % 8 + count;
        m_at += count;
        const unsigned window = unsigned{pByte[0]} << 8 | (needed > 8 ? pByte[1] : 0U);
        return window >> (16 - needed) & ((1U << count) - 1);
    }
    bool b() { return bits(1) != 0; }
    unsigned bb() { return bits(2); }
    unsigned rc() { return bits(8); }
    unsigned rs() { return static_cast<unsigned>(raw(2)); }
    std::uint32_t rl() { return static_cast<std::uint32_t>(raw(4)); }
    double rd();
    unsigned bs();
    std::uint32_t bl();
    std::uint64_t bll() { return raw(bits(3)); }
    double bd();
    double dd(double otherwise);
    unsigned ot();
    std::int64_t mc() { return static_cast<std::int64_t>(modular(true)); }
    std::uint64_t umc() { return modular(false); }
    std::uint32_t ms();
    // The count of things of so many bits each at the least: fails when so many cannot follow.
    std::uint32_t count(std::uint32_t number, std::size_t bitsOfEach = 1);

    // Characters, up to the first NUL: bytes as they stand, or UTF-16, which becomes UTF-8.
    std::string text(std::uint32_t length, bool wide);

    struct Handle {
        unsigned code = 0;
        std::uint64_t value = 0;
    };
    Handle h();

private:
    std::uint64_t raw(unsigned bytes);
    std::uint64_t modular(bool hasSign);

    const unsigned char* m_bytes = nullptr;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    bool m_failed = false;
};

}  // namespace dwg
