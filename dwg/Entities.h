#pragma once

// The types of entities that are written, and how: a function for each type turns its own
// fields into groups. It reads them in their order; what has failed is taken back by its caller.

#include "dwg/Object.h"

#include <string_view>

namespace dwg {

class Drawing;

struct Entity : Object {
    Entity(const Object& object, Drawing& its) : Object(object), drawing(its) {}

    // For the names that its fields refer to.
    Drawing& drawing;
    // Set by the function of a type in whose references others follow, as attributes do: how
    // many (from 2004 on; up to 2000 a first and a last one).
    bool owns = false;
    std::uint32_t owned = 0;
};

struct EntityKind {
    unsigned type;
    const char* name;
    void (*writeFields)(Entity& entity, DxfWriter& out);
};

// Null for a type that is left out.
const EntityKind* entityKind(unsigned type);

}  // namespace dwg
