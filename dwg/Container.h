#pragma once

// Where the sections of a drawing file are, and what they hold, unpacked.

#include <cstdint>
#include <forward_list>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace dwg {

// What a section that was packed grew to. A drawing may take so much memory for its size, no more.
class Room {
public:
    explicit Room(std::size_t fileSize);
    // Throws Unreadable when there is not so much left.
    void take(std::uint64_t bytes);

private:
    std::uint64_t m_left;
};

struct Sections {
    // The first year that writes it so: 13, 14, 2000, 2004, 2007, 2010, 2013, 2018.
    int release = 0;
    std::string_view version;  // as files name it: "AC1015"
    // The number that files have for the code page of texts before 2007.
    unsigned codePage = 0;
    std::string_view classes;  // R13 and R14 alone
    std::string_view objectMap;
    // Offsets in the map count from its start.
    std::string_view objects;
    std::string_view summary;  // from 2004 on

    // Room for what is made of them.
    Room room{0};
    // What the views above look into, where it is not the file.
    std::forward_list<std::string> unpacked;
};

// The views last as long as the bytes and the result. Throws Unreadable.
void readSections(std::string_view bytes, Sections& sections);

// The containers.
void readPlain(std::string_view bytes, Sections& sections);
void readPaged(std::string_view bytes, Sections& sections);
void readWoven(std::string_view bytes, Sections& sections);

// What the paged containers share: pages by their numbers, and sections made of them.
class PagedFile {
public:
    PagedFile(std::string_view bytes, const Room& room) : m_bytes(bytes), m_room(room) {}

protected:
    // Throws Unreadable for one that there is not.
    std::uint64_t address(std::uint64_t page) const;
    // Takes over a section, if it is one of those that are asked for: a page of its own gives its
    // contents, by its place among them, and sets where they start.
    void keep(Sections& sections, std::string_view name, std::uint64_t size, std::uint64_t encryption,
              std::uint64_t pages, const std::function<std::string(std::uint64_t, std::uint64_t&)>& page);

    std::string_view m_bytes;
    Room m_room;
    std::unordered_map<std::uint64_t, std::uint64_t> m_addresses;
};

// Bytes at a place of a file; throws Unreadable when they are not all there.
std::string_view part(std::string_view bytes, std::uint64_t offset, std::uint64_t size);
std::uint32_t number(std::string_view bytes, std::uint64_t offset);
std::uint64_t longNumber(std::string_view bytes, std::uint64_t offset);

}  // namespace dwg
