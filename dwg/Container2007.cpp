// The container of 2007, unlike that of all others: its pages come as
// blocks of 255 bytes, woven into one another, each with bytes that correct errors; those are
// not used.

#include "dwg/BinaryDrawing.h"
#include "dwg/Bits.h"
#include "dwg/Container.h"
#include "dwg/Packing.h"

namespace dwg {

namespace {

constexpr std::uint64_t kFirstPage = 0x480;
constexpr std::uint64_t kOfSystemBlock = 239, kOfDataBlock = 251;  // bytes that are data

[[noreturn]] void fail() { throw Unreadable("damaged: the list of its pages"); }

class File2007 : PagedFile {
public:
    using PagedFile::PagedFile;

    void read(Sections& sections)
    {
        const std::string blocks = woven(0x80, 3, kOfSystemBlock);
        const std::uint32_t size = number(blocks, 24);
        const std::string header =
            (size & 0x80000000) != 0 ? std::string(part(blocks, 32, 0x110)) : unpack2007(part(blocks, 32, size), 0x110);
        const auto field = [&](unsigned index) { return longNumber(header, std::uint64_t{8} * index); };
        const std::string pages = systemPage(field(7), field(10), field(11), field(3));
        std::uint64_t sum = kFirstPage;
        for (std::uint64_t at = 0; at + 16 <= pages.size(); at += 16) {
            m_addresses.emplace(longNumber(pages, at + 8), sum);
            sum += longNumber(pages, at);
        }
        const std::string map = systemPage(address(field(24)) - kFirstPage, field(22), field(25), field(27));
        for (std::uint64_t at = 0; at < map.size();) {
            const std::string_view section = part(map, at, 64);
            const std::uint64_t length = longNumber(section, 32), count = longNumber(section, 56);
            if (count > map.size())
                fail();
            const std::string name =
                Bits(part(map, at + 64, length)).text(static_cast<std::uint32_t>(length / 2), true);
            const std::string_view parts = part(map, at + 64 + length, 56 * count);
            at += 64 + length + parts.size();
            keep(sections, name, longNumber(section, 0), longNumber(section, 16), count,
                 [&](std::uint64_t i, std::uint64_t& start) {
                     start = longNumber(parts, 56 * i);
                     return dataPage(section, part(parts, 56 * i, 56));
                 });
        }
    }

private:
    // The data of blocks that are woven into one another.
    std::string woven(std::uint64_t offset, std::uint64_t blocks, std::uint64_t ofBlock)
    {
        if (blocks > m_bytes.size() / 255)
            fail();
        const std::string_view bytes = part(m_bytes, offset, blocks * 255);
        std::string result;
        for (std::size_t block = 0; block < blocks; ++block)
            for (std::size_t i = 0; i < ofBlock; ++i)
                result += bytes[i * static_cast<std::size_t>(blocks) + block];
        return result;
    }

    std::string unpacked(std::string_view data, std::uint64_t packed, std::uint64_t size)
    {
        m_room.take(size);
        data = part(data, 0, packed);
        return packed < size ? unpack2007(data, static_cast<std::size_t>(size)) : std::string(data);
    }

    std::string systemPage(std::uint64_t address, std::uint64_t packed, std::uint64_t size, std::uint64_t factor)
    {
        if (packed > m_bytes.size() || factor > 255)
            fail();
        const std::uint64_t blocks =
            (((packed + 7) & ~std::uint64_t{7}) * factor + kOfSystemBlock - 1) / kOfSystemBlock;
        return unpacked(woven(kFirstPage + address, blocks, kOfSystemBlock), packed, size);
    }

    std::string dataPage(std::string_view section, std::string_view page)
    {
        const std::uint64_t offset = address(longNumber(page, 16)), packed = longNumber(page, 32);
        if (packed > m_bytes.size())
            fail();
        const std::uint64_t blocks = ((packed + 7) / 8 * 8 + kOfDataBlock - 1) / kOfDataBlock;
        return unpacked(longNumber(section, 48) == 4 ? woven(offset, blocks, kOfDataBlock)
                                                     : std::string(part(m_bytes, offset, packed)),
                        packed, longNumber(page, 24));
    }
};

}  // namespace

void readWoven(std::string_view bytes, Sections& sections) { File2007(bytes, sections.room).read(sections); }

}  // namespace dwg
