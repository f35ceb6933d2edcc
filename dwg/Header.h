#pragma once

// What is known of a drawing as a whole: version, code page, and the properties that the user
// gave it, in the place where its version has them.

#include "dwg/ObjectMap.h"

namespace dwg {

// The HEADER section; from 2004 on with the properties.
void writeHeader(const Sections& sections, DxfWriter& out);
// The OBJECTS section; up to 2000 with the properties.
void writeObjects(const Sections& sections, ObjectMap& map, DxfWriter& out);

// The Windows code page of a drawing's texts, where a character may have two bytes; else 0.
unsigned doubleBytePage(const Sections& sections);

}  // namespace dwg
