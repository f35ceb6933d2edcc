#pragma once

// The types of entities that are shapes alone, as far as they are drawn.

#include "dwg/Entities.h"

#include <span>

namespace dwg {

std::span<const EntityKind> geometryKinds();

// The number that R13 and R14, which keep it in the drawing, give LWPOLYLINE; 0 for none. Later
// ones have a fixed one, which is the kind's.
unsigned polylineClass(std::string_view classes);
constexpr unsigned kPolyline = 0x4D;
constexpr unsigned kFirstDimension = 0x14, kLastDimension = 0x1A;

}  // namespace dwg
