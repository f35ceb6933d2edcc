#include "dxf/TagReader.h"
#include "tests/support/FolderFrom.h"
#include "tests/support/Hex.h"
#include "tests/support/TestFolder.h"

#include "dwg/Drawing.h"

#include <sstream>

// As CAD systems wrote them, but for what they refer to.
TEST_CASE("shapes of binary drawings become the groups that are drawn")
{
    const struct {
        int release;
        std::uint64_t handle;
        const char *hex, *groups;
        std::uint64_t layer = 0;
    } rows[] = {
        {2000, 0x190,
         "310041fb400000008064253421d3816f1d4d19d2b100a0c065b00cb2b740ba9986085d081a8c52900bea100c92100c91900c8f9456",
         "0 66=1 2= 10=3642.14 20=6066.05 30=0 41=1 42=1 43=1 50=0 210=0 220=0 230=1", 0x8A},
        {2004, 0x190, "2a0041fdc00000008064257421d3816f1d4d19d2b100a0c065b00cb2b740ba9a02a314a402fa6403246403230f20",
         "1 66=1 2= 10=3642.14 20=6066.05 30=0 41=1 42=1 43=1 50=0 210=0 220=0 230=1", 0x8A},
        {2010, 0x190, "28005b01c08064257400010e9c0b78ea68ce95880506032d806595ba05d4d0128c52900be9900c91900c8ff3d5",
         "1 66=1 2= 10=3642.14 20=6066.05 30=0 41=1 42=1 43=1 50=0 210=0 220=0 230=1", 0x8A},
        {2000, 0x2C,
         "3f0044f7404000004b257421d00000000000000206000000000000108000000000000010818000000000000820000000"
         "0000000820600000000000028819828887da59",
         "0 10=2 20=3 30=4 11=3 21=4 31=5"},
        {2004, 0x90,
         "370044688040000064257421d35b4d26b4ca524100f94fa1617ad991408168ff6901cf58940c32f2b7afbd7e12403207"
         "be87ea98001014627f75d0",
         "0 10=1061.05 20=1142.37 30=0 40=830.639 50=264.923 51=117.296"},
        {2000, 0x4B,
         "500047d60080000052e16421ddaff5c6ca1d303881ac02156f63924280a5f9d72338d8388126041d9bf1664280000000"
         "0000003881fffffffffffe42800000000000003881fffffffffffe4281c104305110f9f8",
         "0 10=7.14849 20=8.89393 11=7.10607 21=8.85151 12=7 22=9 13=7 23=9"},
        {2004, 0x321,
         "390048ed0040000080c8657421d238d409e020014500381114d2a7bd104085c479478af6714c0aa4059325f8ee7de43f"
         "8182d4454fb2119405110fa83e",
         "0 10=68.0005 20=4.18521 30=0 11=-5.10126 21=0 31=0 40=0.640373 41=0 42=6.28319"},
        {2004, 0x2E5,
         "7f00537880c0000080b9657421d4c10541505465968a781a6414018c8324790cd1640f6bda3ab5cf4d0d00978b0b948d"
         "917841f81cdc0322640e6b49fc9faf51050330b02e6bfe7c2140c3904bc2bc4150d03e4cc7e91fea820402235ff626bc"
         "1405002e94559038b5d33faaaaa82b201a3c5c5b0d4022a0ec165fd4851014443f941c",
         "0 70=0 10=35.3008 20=5.70075 42=2.12778 10=39.652 20=5.70075 42=0.307936 10=38.3466 20=11.0991 10=35.6634 "
         "20=8.74413 10=38.0464 20=8.33007"},
        {2000, 0x1EF,
         "2e0043fa00000000807be12521da0cccccccccccf0cfc333333333333c33fd4201ec30404051104201f04201f13201f2"
         "f639",
         "0 70=0 10=0 20=0 30=0"},
        {2000, 0x201, "260042bc000000008080612521d00000000000000342fe8000000000000e0bf64201ff3040605110aff0",
         "0 10=-0.25 20=0 30=0 42=1 70=0"},
        {2004, 0x42B, "2300441d80000000810ae57421d00004154440c810b0c810b4c810b8c810bcc810c0c810c7a406", "5 70=8"},
        {2004, 0x42C, "210042fa80000000810b217421d202030f712d044db5000074fc25f290ec3fa014443ffa1f",
         "0 10=232.602 20=0.892694 30=0 70=32"},
        {2004, 0x731,
         "4b004b06c080000081cc6480f421d09b50622de7d8b9001687753620b02940a96902b5e8dc0f42b1cfd014040ad7a370"
         "3d0ac73f0f87a7fe8f19fa8fd064d54455854004054840e5ca220a223ff3d1",
         "0 10=15.4814 20=12.844 30=0 40=0.18 1=MTEXT"},
    };
    dwg::Sections made;
    const std::string sDrawing = CTestFolder::read(folderFrom("ZAVIK_MADE") + "/made_2000.dwg");
    dwg::readSections(sDrawing, made);
    dwg::Drawing drawing(made);
    for (const auto& row : rows) {
        CAPTURE(row.groups);
        const std::string sBytes = bytesOf(row.hex);
        dwg::Sections sections;
        sections.objects = sBytes;
        sections.release = row.release;
        dwg::Entity entity(dwg::Object(sections, 0, row.handle), drawing);
        entity.readEntityPreamble();
        dwg::DxfWriter out(0);
        dwg::entityKind(entity.type())->writeFields(entity, out);
        CHECK_FALSE(entity.failed());
        if (row.layer != 0) {
            CHECK(entity.layer == row.layer);
            CHECK(entity.reference() == 0x192);
        }
        CHECK(dwg::Object(sections, 0, row.handle + 1).failed());
        std::ostringstream groups;
        groups << entity.owned;
        const std::string sText = out.take();
        dxf::TagReader tags(sText);
        for (dxf::DxfTag tag; dxf::nextTag(tags, tag);)
            if (tag.code < 10)
                groups << " " << tag.code << "=" << tag.value;
            else
                groups << " " << tag.code << "=" << dxf::toDouble(tag.value);
        CHECK(groups.str() == row.groups);
    }
}
