#include "dwg/BinaryDrawing.h"
#include "dwg/Packing.h"

#include <cstdint>

namespace dwg {

namespace {

[[noreturn]] void fail() { throw Unreadable("damaged: a page does not unpack"); }

// Literals are shuffled: by their number, the pieces of the source that follow each other, each
// a letter for its start and one for its length, from a = 0 on.
constexpr std::string_view kPieces[32] = {
    "",     "ab",     "ac",       "ad",       "ae",     "ebae",     "fbbeab",   "fcbeab",
    "ai",   "ibai",   "jbbiab",   "jcbiab",   "ieai",   "mbieai",   "nbjebiab", "ncjebiab",
    "aq",   "jiibai", "rbbqab",   "qdaq",     "qeaq",   "ubqeaq",   "ucqeaq",   "udqeaq",
    "qiaq", "riqbaq", "zbriqbaq", "zcriqbaq", "yeqiaq", "}byeqiaq", "}cyeqiaq", "b{esicqac"};

class Unpacker2007 {
public:
    Unpacker2007(std::string_view packed, std::uint64_t size) : m_in(packed), m_most(size) {}

    std::string run()
    {
        unsigned op = next(), literals = 0;
        if (op >> 4 == 2) {
            m_at += 2;
            literals = next() & 7;
        }
        while (true) {
            writeLiterals(literals != 0 ? literals : longer(op + 8));
            if (m_at >= m_in.size())
                return std::move(m_out);
            op = next();
            do {
                op = copy(op);
                literals = op & 7;
                if (m_at >= m_in.size())
                    return std::move(m_out);
                if (literals != 0)
                    break;
                op = next();
                if (op >> 4 == 0)
                    break;
                if (op >> 4 == 15)
                    op &= 15;
            } while (true);
        }
    }

private:
    unsigned next()
    {
        if (m_at >= m_in.size())
            fail();
        return static_cast<unsigned char>(m_in[m_at++]);
    }
    unsigned nextTwo()
    {
        const unsigned low = next();
        return low | next() << 8;
    }

    std::uint64_t longer(std::uint64_t length)
    {
        if (length != 0x17)
            return length;
        unsigned more = next();
        length += more;
        for (bool goesOn = more == 0xFF; goesOn; goesOn = more == 0xFFFF)
            length += more = nextTwo();
        return length;
    }

    void writeLiterals(std::uint64_t length)
    {
        if (length > m_in.size() - m_at || length > m_most - m_out.size())
            fail();
        for (; length >= 32; length -= 32, m_at += 32)
            for (const std::size_t start : {24u, 16u, 8u, 0u})
                m_out.append(m_in, m_at + start, 8);
        const std::string_view pieces = kPieces[length];
        for (std::size_t i = 0; i < pieces.size(); i += 2)
            writePiece(m_in.substr(m_at + static_cast<std::size_t>(pieces[i] - 'a'),
                                   static_cast<std::size_t>(pieces[i + 1] - 'a')));
        m_at += static_cast<std::size_t>(length);
    }

    void writePiece(std::string_view piece)
    {
        if (piece.size() == 2 || piece.size() == 3)
            m_out.append(piece.rbegin(), piece.rend());
        else if (piece.size() == 16)
            m_out.append(piece.substr(8)).append(piece.substr(0, 8));
        else
            m_out.append(piece);
    }

    // Gives the byte that also says how many literals follow.
    unsigned copy(unsigned op)
    {
        std::uint64_t length = 0, distance = 0;
        const unsigned kind = op >> 4;
        if (kind == 2) {
            length = op & 7;
            distance = nextTwo();
            if ((op & 8) == 0) {
                op = next();
                length += op & 0xF8;
            } else {
                ++distance;
                length += next() << 3;
                op = next();
                length += ((op & 0xF8) << 8) + 0x100;
            }
        } else {
            length = kind == 0 ? (op & 15) + 0x13 : kind == 1 ? (op & 15) + 3 : kind;
            distance = (kind < 2 ? next() : op & 15) + 1;
            op = next();
            length += kind == 0 ? op >> 3 & 0x10 : 0;
            distance += kind == 0 ? (op & 0x78) << 5 : kind == 1 ? (op & 0xF8) << 5 : (op & 0xF8) << 1;
        }
        if (distance == 0 || distance > m_out.size() || length > m_most - m_out.size())
            fail();
        for (; length != 0; --length)
            m_out += m_out[m_out.size() - static_cast<std::size_t>(distance)];
        return op;
    }

    std::string_view m_in;
    std::size_t m_at = 0;
    std::uint64_t m_most;
    std::string m_out;
};

}  // namespace

std::string unpack2007(std::string_view packed, std::size_t most) { return Unpacker2007(packed, most).run(); }

}  // namespace dwg
