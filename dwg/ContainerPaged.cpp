// The container of 2004, and of 2010 and later: pages, and maps of pages and sections, packed.

#include "dwg/BinaryDrawing.h"
#include "dwg/Container.h"
#include "dwg/Packing.h"

namespace dwg {

namespace {

constexpr std::uint32_t kPageMap = 0x41630E3B, kSectionMap = 0x4163003B, kDataPage = 0x4163043B;
constexpr std::uint32_t kPageMask = 0x4164536B;

class File2004 : PagedFile {
public:
    using PagedFile::PagedFile;

    void read(Sections& sections)
    {
        const std::string header = decoded(part(m_bytes, 0x80, 0x6C));
        if (header.compare(0, 12, std::string("AcFssFcAJMB\0", 12)) != 0)
            throw Unreadable("damaged: the header of its pages");
        readPageMap(longNumber(header, 0x54) + 0x100);
        const std::string map = systemPage(address(number(header, 0x5C)), kSectionMap);
        const std::uint32_t count = number(map, 0);
        if (count > 256)
            throw Unreadable("damaged: the list of its sections");
        std::uint64_t at = 20;
        for (std::uint32_t i = 0; i < count; ++i) {
            const std::string_view section = part(map, at, 96);
            const std::string_view pages = part(map, at + 96, std::uint64_t{16} * number(section, 8));
            at += 96 + pages.size();
            const std::string_view name = section.substr(32, section.find('\0', 32) - 32);
            keep(sections, name, longNumber(section, 0), number(section, 28), pages.size() / 16,
                 [&](std::uint64_t place, std::uint64_t& start) {
                     start = longNumber(pages, 16 * place + 8);
                     return dataPage(section, address(number(pages, 16 * place)));
                 });
        }
    }

private:
    static std::string decoded(std::string_view bytes)
    {
        std::string result(bytes);
        std::uint32_t seed = 1;
        for (char& c : result) {
            seed = seed * 0x343FD + 0x269EC3;
            c = static_cast<char>(c ^ static_cast<char>(seed >> 16));
        }
        return result;
    }

    std::string systemPage(std::uint64_t offset, std::uint32_t tag)
    {
        const std::string_view header = part(m_bytes, offset, 20);
        if (number(header, 0) != tag || number(header, 12) != 2)
            throw Unreadable("damaged: a map of its pages");
        m_room.take(number(header, 4));
        return unpack(part(m_bytes, offset + 20, number(header, 8)), number(header, 4));
    }

    void readPageMap(std::uint64_t offset)
    {
        const std::string map = systemPage(offset, kPageMap);
        std::uint64_t sum = 0x100;
        for (std::uint64_t at = 0; at + 8 <= map.size(); at += 8) {
            const std::uint32_t page = number(map, at);
            const std::uint64_t start = sum;
            sum += number(map, at + 4);
            if ((page & 0x80000000) != 0)
                at += 16;  // a gap, whose record is longer
            else
                m_addresses.emplace(page, start);
        }
    }

    std::string dataPage(std::string_view section, std::uint64_t offset)
    {
        const std::uint32_t mask = kPageMask ^ static_cast<std::uint32_t>(offset);
        const std::string_view header = part(m_bytes, offset, 32);
        if ((number(header, 0) ^ mask) != kDataPage)
            throw Unreadable("damaged: the header of a page");
        const std::string_view data = part(m_bytes, offset + 32, number(header, 8) ^ mask);
        if (number(section, 20) != 2)
            return std::string(data);
        m_room.take(number(section, 12));
        return unpack(data, number(section, 12));
    }
};

}  // namespace

void readPaged(std::string_view bytes, Sections& sections) { File2004(bytes, sections.room).read(sections); }

}  // namespace dwg
