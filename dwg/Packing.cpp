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

protected:
    [[noreturn]] static void fail() { throw Unreadable("damaged: a page does not unpack"); }

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

    // So many bytes of what is packed.
    std::string_view take(std::size_t length)
    {
        if (length > m_in.size() - m_at || length > m_most - m_out.size())
            fail();
        m_at += length;
        return m_in.substr(m_at - length, length);
    }

    void repeat(std::size_t length, std::size_t distance)
    {
        if (distance == 0 || distance > m_out.size() || length > m_most - m_out.size())
            fail();
        for (; length != 0; --length)  // they may overlap
            m_out += m_out[m_out.size() - distance];
    }

    bool atEnd() const { return m_at >= m_in.size(); }
    void skip(std::size_t count) { m_at += count; }

    std::string m_out;

private:
    static constexpr unsigned kEnd = 0x11;

    // A length that goes on in the bytes that follow.
    std::size_t longer(std::size_t length)
    {
        unsigned byte = next();
        for (; byte == 0; byte = next())
            length += 255;
        return length + byte;
    }

    void literals(std::size_t length) { m_out.append(take(length)); }

    // Gives how many literals follow.
    unsigned copy(unsigned op)
    {
        std::size_t length = 0;
        if (op >= 0x40) {
            repeat((op >> 4) - 1, (next() << 2 | (op & 0x0C) >> 2) + 1);
            return op & 3;
        }
        if (op >= 0x20)
            length = op == 0x20 ? longer(0) + 0x21 : op - 0x1E;
        else
            length = (op & 7) == 0 ? longer(0) + 9 : (op & 7) + 2;
        const unsigned low = nextTwo();
        repeat(length, (low >> 2) + (op < 0x20 ? 0x4000 + ((op & 8) << 11) : 1));
        return low & 3;
    }

    std::string_view m_in;
    std::size_t m_at = 0;
    std::size_t m_most;
};

// Of 2007. Literals are shuffled: by their number, the pieces of the source that follow each
// other, each a letter for its start and one for its length, from A = 0 on.
constexpr std::string_view kPieces[32] = {
    "",     "AB",     "AC",       "AD",       "AE",     "EBAE",     "FBBEAB",   "FCBEAB",
    "AI",   "IBAI",   "JBBIAB",   "JCBIAB",   "IEAI",   "MBIEAI",   "NBJEBIAB", "NCJEBIAB",
    "AQ",   "JIIBAI", "RBBQAB",   "QDAQ",     "QEAQ",   "UBQEAQ",   "UCQEAQ",   "UDQEAQ",
    "QIAQ", "RIQBAQ", "ZBRIQBAQ", "ZCRIQBAQ", "YEQIAQ", "]BYEQIAQ", "]CYEQIAQ", "_B[ESICQAC"};

class Unpacker2007 : Unpacker {
public:
    using Unpacker::Unpacker;

    std::string run()
    {
        unsigned op = next(), literals = 0;
        if (op >> 4 == 2) {
            skip(2);
            literals = next() & 7;
        }
        while (true) {
            writeLiterals(literals != 0 ? literals : longer(op + 8));
            if (atEnd())
                return std::move(m_out);
            op = next();
            do {
                op = copy(op);
                literals = op & 7;
                if (atEnd())
                    return std::move(m_out);
                if (literals != 0)
                    break;
                op = next();
                if (op >> 4 == 15)
                    op &= 15;
                else if (op >> 4 == 0)
                    break;
            } while (true);
        }
    }

private:
    std::size_t longer(std::size_t length)
    {
        if (length != 0x17)
            return length;
        unsigned more = next();
        length += more;
        for (bool goesOn = more == 0xFF; goesOn; goesOn = more == 0xFFFF)
            length += more = nextTwo();
        return length;
    }

    void writeLiterals(std::size_t length)
    {
        std::string_view source = take(length);
        for (; source.size() >= 32; source.remove_prefix(32))
            for (const std::size_t start : {24u, 16u, 8u, 0u})
                m_out.append(source, start, 8);
        const std::string_view pieces = kPieces[source.size()];
        for (std::size_t i = 0; i < pieces.size(); i += 2)
            writePiece(source.substr(static_cast<std::size_t>(pieces[i] - 'A'),
                                     static_cast<std::size_t>(pieces[i + 1] - 'A')));
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
        std::size_t length = 0, distance = 0;
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
        repeat(length, distance);
        return op;
    }
};

}  // namespace

std::string unpack(std::string_view packed, std::size_t most) { return Unpacker(packed, most).run(); }
std::string unpack2007(std::string_view packed, std::size_t most) { return Unpacker2007(packed, most).run(); }

}  // namespace dwg
