#pragma once

// The objects of a drawing by their handles.

#include "dwg/Object.h"

#include <utility>
#include <vector>

namespace dwg {

class ObjectMap {
public:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

    // Throws Unreadable. The sections outlive it.
    explicit ObjectMap(const Sections& sections);

    std::size_t size() const { return m_entries.size(); }
    // The index of the handle; kNone for one that is erased or never was.
    std::size_t find(std::uint64_t handle) const;
    unsigned typeAt(std::size_t index) const { return Object::typeAt(m_sections, m_entries[index].second); }
    // Throws Unreadable when all that were opened are more than a sound drawing holds. kNone
    // gives an object that has failed.
    Object open(std::size_t index);

private:
    const Sections& m_sections;
    std::vector<std::pair<std::uint64_t, std::uint64_t>> m_entries;  // handle, offset
    Room m_work;
};

}  // namespace dwg
