#include "host/observation/Deflate.h"

#include <cstddef>

namespace host::observation {

namespace {

// Bits are packed from the lowest of each byte; codes go in from their highest bit.
class BitWriter {
public:
    void bits(std::uint32_t value, int count)
    {
        for (int i = 0; i < count; ++i)
            bit(value >> i & 1);
    }
    void code(std::uint32_t value, int count)
    {
        for (int i = count - 1; i >= 0; --i)
            bit(value >> i & 1);
    }
    std::string finish()
    {
        while (m_used != 0)
            bit(0);
        return std::move(m_bytes);
    }

private:
    void bit(std::uint32_t value)
    {
        m_current |= value << m_used;
        if (++m_used == 8) {
            m_bytes += static_cast<char>(m_current);
            m_current = 0;
            m_used = 0;
        }
    }

    std::string m_bytes;
    std::uint32_t m_current = 0;
    int m_used = 0;
};

// The fixed code of a byte or of a length.
void writeSymbol(BitWriter& out, std::uint32_t symbol)
{
    if (symbol < 144)
        out.code(0x30 + symbol, 8);
    else if (symbol < 256)
        out.code(0x190 + symbol - 144, 9);
    else if (symbol < 280)
        out.code(symbol - 256, 7);
    else
        out.code(0xC0 + symbol - 280, 8);
}

// The byte before, once more and more: 258 times is the most that one length says.
constexpr std::size_t kLongestRun = 258;
constexpr std::uint32_t kLongestRunSymbol = 285;
constexpr std::size_t kShortestRun = 3;
constexpr std::uint32_t kShortestRunSymbol = 257;  // up to 10 bytes, a symbol a length

std::size_t runLength(const std::string& data, std::size_t start)
{
    std::size_t length = 0;
    while (start != 0 && length < kLongestRun && start + length < data.size() &&
           data[start + length] == data[start - 1])
        ++length;
    return length;
}

std::uint32_t adler32(const std::string& data)
{
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char c : data) {
        a = (a + static_cast<std::uint8_t>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

}  // namespace

std::string zlibCompressed(const std::string& data)
{
    BitWriter out;
    out.bits(1, 1);  // the last block
    out.bits(1, 2);  // with the fixed codes
    for (std::size_t i = 0; i < data.size();) {
        std::size_t run = runLength(data, i);
        if (run > 10 && run < kLongestRun)
            run = 10;
        if (run < kShortestRun) {
            writeSymbol(out, static_cast<std::uint8_t>(data[i++]));
            continue;
        }
        writeSymbol(out, run == kLongestRun ? kLongestRunSymbol
                                            : kShortestRunSymbol + static_cast<std::uint32_t>(run - kShortestRun));
        out.code(0, 5);  // distance 1
        i += run;
    }
    writeSymbol(out, 256);
    std::string stream = "\x78\x01" + out.finish();
    const std::uint32_t check = adler32(data);
    for (int shift = 24; shift >= 0; shift -= 8)
        stream += static_cast<char>(check >> shift & 0xFF);
    return stream;
}

std::uint32_t crc32(const std::string& data)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : data) {
        crc ^= static_cast<std::uint8_t>(c);
        for (int i = 0; i < 8; ++i)
            crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

}  // namespace host::observation
