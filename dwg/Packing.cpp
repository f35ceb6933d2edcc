#include "dwg/Packing.h"

#include "dwg/BinaryDrawing.h"

namespace dwg {

namespace {

// Literal runs, and copies from what is already out.
class Unpacker {
public:
    Unpacker(std::string_view packed, std::size_t most) : m_in(packed), m_most(most) {}

    std::string run()
    {
        bool mayBeLiterals = true;
        do {
            const unsigned op = next();
            if (op == kEnd)
                break;
            if (op >= 0x10) {
                const unsigned behind = copy(op);
                literals(behind);
                mayBeLiterals = behind == 0;
            } else if (mayBeLiterals) {
                literals(op == 0 ? longer(15) + 3 : op + 3);
                mayBeLiterals = false;
            } else {
                fail();
            }
        } while (m_out.size() < m_most);
        return std::move(m_out);
    }

private:
    static constexpr unsigned kEnd = 0x11;

    [[noreturn]] static void fail() { throw Unreadable("damaged: a page does not unpack"); }

    unsigned next()
    {
        if (m_at == m_in.size())
            fail();
        return static_cast<unsigned char>(m_in[m_at++]);
    }

    // A length that goes on in the bytes that follow.
    std::size_t longer(std::size_t length)
    {
        unsigned byte = next();
        for (; byte == 0; byte = next())
            length += 255;
        return length + byte;
    }

    void literals(std::size_t length)
    {
        if (length > m_in.size() - m_at || length > m_most - m_out.size())
            fail();
        m_out.append(m_in, m_at, length);
        m_at += length;
    }

    // Gives how many literals follow.
    unsigned copy(unsigned op)
    {
        std::size_t length = 0, distance = 0;
        unsigned behind = op & 3;
        if (op >= 0x40) {
            length = (op >> 4) - 1;
            distance = (next() << 2 | (op & 0x0C) >> 2) + 1;
        } else {
            if (op >= 0x20)
                length = op == 0x20 ? longer(0) + 0x21 : op - 0x1E;
            else
                length = (op & 7) == 0 ? longer(0) + 9 : (op & 7) + 2;
            const unsigned low = next();
            distance = (low >> 2 | next() << 6) + 1;
            if (op < 0x20)
                distance += 0x3FFF + ((op & 8) << 11);
            behind = low & 3;
        }
        if (distance > m_out.size() || length > m_most - m_out.size())
            fail();
        for (; length != 0; --length)  // they may overlap
            m_out += m_out[m_out.size() - distance];
        return behind;
    }

    std::string_view m_in;
    std::size_t m_at = 0;
    std::size_t m_most;
    std::string m_out;
};

}  // namespace

std::string unpack(std::string_view packed, std::size_t most) { return Unpacker(packed, most).run(); }

}  // namespace dwg
