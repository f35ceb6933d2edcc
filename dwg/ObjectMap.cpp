#include "dwg/ObjectMap.h"

#include "dwg/BinaryDrawing.h"

#include <algorithm>

namespace dwg {

ObjectMap::ObjectMap(const Sections& sections) : m_sections(sections), m_work(sections.objects.size())
{
    for (std::uint64_t at = 0;;) {
        const std::string_view size = part(sections.objectMap, at, 2);
        const std::size_t length =
            std::size_t{static_cast<unsigned char>(size[0])} << 8 | static_cast<unsigned char>(size[1]);
        if (length <= 2)
            break;
        Bits page(part(sections.objectMap, at + 2, length - 2));
        std::uint64_t handle = 0, offset = 0;
        while (page.left() != 0) {
            handle += page.umc();
            offset += static_cast<std::uint64_t>(page.mc());
            m_entries.emplace_back(handle, offset);
        }
        if (page.failed())
            throw Unreadable("damaged: the map of its objects");
        at += length + 2;  // behind the checksum
    }
    std::sort(m_entries.begin(), m_entries.end());
}

std::size_t ObjectMap::find(std::uint64_t handle) const
{
    const auto found = std::lower_bound(m_entries.begin(), m_entries.end(), std::pair{handle, std::uint64_t{0}});
    return found != m_entries.end() && found->first == handle ? static_cast<std::size_t>(found - m_entries.begin())
                                                              : kNone;
}

Object ObjectMap::open(std::size_t index)
{
    const auto [handle, offset] = index < size() ? m_entries[index] : std::pair{~std::uint64_t{0}, ~std::uint64_t{0}};
    Object object(m_sections, offset, handle);
    m_work.take(object.size());
    return object;
}

}  // namespace dwg
