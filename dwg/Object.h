#pragma once

// An object of a drawing: three streams that are read side by side. Its own fields begin where
// the preamble, the same for all objects or all entities, ends.

#include "dwg/Bits.h"
#include "dwg/Container.h"
#include "dwg/DxfWriter.h"

#include <string>

namespace dwg {

class Object {
public:
    // The one at the offset; has failed when that has another handle.
    Object(const Sections& sections, std::uint64_t offset, std::uint64_t handle);
    // The type alone; 0 when there is nothing.
    static unsigned typeAt(const Sections& sections, std::uint64_t offset);

    // What can be asked first: has something been read behind its end, or an impossible value?
    bool failed() const { return data.failed() || references.failed() || m_strings.failed(); }

    // --- The preamble, read first, one or the other
    void readPreamble();
    void readEntityPreamble();

    // --- Known from it
    int release() const { return m_release; }
    unsigned type() const { return m_type; }
    std::size_t size() const { return m_body.size(); }
    std::uint64_t handle() const { return m_handle; }
    std::uint64_t owner = 0;
    // Of entities. The next one counts up to 2000 alone.
    std::uint64_t next = 0;
    std::uint64_t layer = 0;
    bool invisible = false;

    // --- Fields
    Bits data;
    Bits references;
    // A text, from wherever this version has it, in the encoding of the result.
    std::string text();
    // In the stream of texts (2007 and later).
    bool hasMoreTexts() const { return m_strings.left() >= 2; }
    // A handle; 0 for none.
    std::uint64_t reference();
    Point point3();      // 3BD
    double thickness();  // BT
    Point extrusion();   // BE

private:
    // Where the references begin, and before them the texts.
    void splitAt(std::size_t end);
    void readOwners(bool hasOwner);
    void skipReferences(std::uint32_t count);

    int m_release;
    unsigned m_type = 0;
    std::uint64_t m_handle;
    Bits m_strings;
    std::string_view m_body;
};

}  // namespace dwg
