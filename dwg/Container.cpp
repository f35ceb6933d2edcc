#include "dwg/Container.h"

#include "dwg/BinaryDrawing.h"
#include "dwg/Bits.h"

#include <algorithm>

namespace dwg {

namespace {

constexpr struct {
    std::string_view magic;
    int release;
    void (*read)(std::string_view, Sections&);
} kVersions[] = {
    {"AC1012", 13, readPlain},   {"AC1014", 14, readPlain},   {"AC1015", 2000, readPlain}, {"AC1018", 2004, readPaged},
    {"AC1021", 2007, readWoven}, {"AC1024", 2010, readPaged}, {"AC1027", 2013, readPaged}, {"AC1032", 2018, readPaged},
};
constexpr std::size_t kLargest = 0xFFFFFFF;  // its bits can be counted

}  // namespace

// Real drawings grow two- to sixfold.
Room::Room(std::size_t fileSize) : m_left(std::uint64_t{fileSize} * 32 + 0x1000000) {}

void Room::take(std::uint64_t bytes)
{
    if (bytes > m_left)
        throw Unreadable("damaged: it would grow without end");
    m_left -= bytes;
}

std::string_view part(std::string_view bytes, std::uint64_t offset, std::uint64_t size)
{
    if (offset > bytes.size() || size > bytes.size() - offset)
        throw Unreadable("damaged: it ends before its contents");
    return bytes.substr(static_cast<std::size_t>(offset), static_cast<std::size_t>(size));
}

std::uint32_t number(std::string_view bytes, std::uint64_t offset) { return Bits(part(bytes, offset, 4)).rl(); }

std::uint64_t longNumber(std::string_view bytes, std::uint64_t offset)
{
    return number(bytes, offset) | std::uint64_t{number(bytes, offset + 4)} << 32;
}

void readSections(std::string_view bytes, Sections& sections)
{
    const std::string_view magic = bytes.substr(0, 6);
    if (bytes.size() > kLargest)
        throw Unreadable("it is too large");
    for (const auto& version : kVersions)
        if (version.magic == magic) {
            sections.release = version.release;
            sections.version = magic;
            sections.room = Room(bytes.size());
            sections.codePage = number(bytes, 0x13) & 0xFFFF;
            version.read(bytes, sections);
            return;
        }
    throw Unreadable((magic < kVersions[0].magic ? "it is from before R13 (" : "its version is not known (") +
                     std::string(magic) + ")");
}

std::uint64_t PagedFile::address(std::uint64_t page) const
{
    const auto found = m_addresses.find(page);
    if (found == m_addresses.end())
        throw Unreadable("damaged: a page is missing");
    return found->second;
}

void PagedFile::keep(Sections& sections, std::string_view name, std::uint64_t size, std::uint64_t encryption,
                     std::uint64_t pages, const std::function<std::string(std::uint64_t, std::uint64_t&)>& page)
{
    std::string_view* const pSection = name == "AcDb:Handles"       ? &sections.objectMap
                                       : name == "AcDb:AcDbObjects" ? &sections.objects
                                       : name == "AcDb:SummaryInfo" ? &sections.summary
                                                                    : nullptr;
    if (pSection == nullptr)
        return;
    if (encryption == 1)
        throw Unreadable("it is protected by a password");
    m_room.take(size);
    std::string& result = sections.unpacked.emplace_front(static_cast<std::size_t>(size), '\0');
    for (std::uint64_t i = 0, start = 0; i < pages; ++i) {
        const std::string contents = page(i, start);
        if (start > size)
            throw Unreadable("damaged: a page beyond its section");
        const std::size_t count = std::min(contents.size(), static_cast<std::size_t>(size - start));
        std::copy_n(contents.begin(), count, result.begin() + static_cast<std::ptrdiff_t>(start));
    }
    *pSection = result;
}

void readPlain(std::string_view bytes, Sections& sections)
{
    const std::uint32_t count = number(bytes, 0x15);
    if (count > 16)
        throw Unreadable("damaged: the list of its sections");
    for (std::uint64_t at = 0x19; at < 0x19 + 9 * count; at += 9) {
        const char kind = part(bytes, at, 9)[0];
        if (kind == 1)
            sections.classes = part(bytes, number(bytes, at + 1), number(bytes, at + 5));
        else if (kind == 2)
            sections.objectMap = part(bytes, number(bytes, at + 1), number(bytes, at + 5));
    }
    sections.objects = bytes;
}

}  // namespace dwg
