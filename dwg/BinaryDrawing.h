#pragma once

// A binary drawing (R13 to 2018) as DXF text: what tabs, tooltips and the view of a drawing need,
// in the drawing's own encoding. Header, block records, blocks, entities, properties.

#include <stdexcept>
#include <string>
#include <string_view>

namespace dwg {

// Nothing of the drawing can be read; what() says why, in words for the user.
class Unreadable : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

// Throws Unreadable. What fails in one block, reference or attribute is left out alone.
std::string toText(std::string_view bytes);

}  // namespace dwg
