#include "dwg/Drawing.h"
#include "dxf/TagReader.h"
#include "tests/support/FolderFrom.h"
#include "tests/support/Hex.h"
#include "tests/support/TestFolder.h"

#include <sstream>

// As CAD systems wrote them, but for what they refer to: a line each, with release, handle, the layer's
// handle where it is of interest, bytes, and how many it owns and its groups.
TEST_CASE("shapes of binary drawings become the groups that are drawn")
{
    const std::string sFolder = folderFrom("ZAVIK_MADE") + "/";
    dwg::Sections made;
    const std::string sDrawing = CTestFolder::read(sFolder + "made_2000.dwg");
    dwg::readSections(sDrawing, made);
    dwg::Drawing drawing(made);
    std::istringstream rows(CTestFolder::read(sFolder + "shapes.txt"));
    int count = 0;
    std::uint64_t handle = 0, layer = 0;
    dwg::Sections sections;
    for (std::string sHex, sGroups; rows >> std::dec >> sections.release >> std::hex >> handle >> layer >> sHex;
         ++count) {
        std::getline(rows >> std::ws, sGroups);
        CAPTURE(sGroups);
        const std::string sBytes = bytesOf(sHex);
        sections.objects = sBytes;
        dwg::Entity entity(dwg::Object(sections, 0, handle), drawing);
        entity.readEntityPreamble();
        dwg::DxfWriter out(0);
        dwg::entityKind(entity.type())->writeFields(entity, out);
        CHECK_FALSE(entity.failed());
        if (layer != 0) {
            CHECK(entity.layer == layer);
            CHECK(entity.reference() == 0x192);
        }
        CHECK(dwg::Object(sections, 0, handle + 1).failed());
        std::ostringstream groups;
        groups << entity.owned;
        const std::string sText = out.take();
        dxf::TagReader tags(sText);
        for (dxf::DxfTag tag; dxf::nextTag(tags, tag);)
            if (tag.code < 10)
                groups << " " << tag.code << "=" << tag.value;
            else
                groups << " " << tag.code << "=" << dxf::toDouble(tag.value);
        CHECK(groups.str() == sGroups);
    }
    CHECK(count == 13);
}
