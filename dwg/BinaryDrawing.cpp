#include "dwg/BinaryDrawing.h"

#include "dwg/Container.h"
#include "dwg/Drawing.h"

namespace dwg {

std::string toText(std::string_view bytes)
{
    Sections sections;
    readSections(bytes, sections);
    return Drawing(sections).text();
}

}  // namespace dwg
