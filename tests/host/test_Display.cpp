#include "host/drawing/Database.h"
#include "host/ui/DisplayList.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

#include <sstream>

TEST_CASE("the plan shows what is drawn, and where")
{
    const char* const sBlocks = "|0=BLOCK|2=B|10=10|20=0|0=LINE|10=10|20=0|11=60|21=0|0=ENDBLK"
                                "|0=BLOCK|2=*D1|10=0|20=0|0=LINE|10=20|20=20|11=20|21=80|0=ENDBLK";
    const struct {
        const char* entities;
        const char* places;  // where something is drawn; with a mark, where nothing is
    } rows[] = {
        {"|0=LINE|10=20|20=30|11=80|21=30", "20,30 50,30 80,30 !50,40"},
        {"|0=POINT|10=50|20=60", "50,60 !54,60"},
        {"|0=ARC|10=50|20=50|40=30|50=270|51=0", "50,20 80,50 71,29 !50,80 !20,50"},
        {"|0=ARC|10=-50|20=50|40=30|50=270|51=0|230=-1.0", "50,20 20,50 29,29 !50,80 !80,50"},
        {"|0=ELLIPSE|10=50|20=50|11=40|21=0|40=0.5|41=0.0|42=3.1415926", "90,50 50,70 11,54 !50,30"},
        {"|0=ELLIPSE|10=50|20=50|11=40|21=0|40=0.5|41=0.0|42=3.1415926|230=-1.0", "50,30 !50,70"},
        {"|0=LWPOLYLINE|70=1|10=20|20=20|42=-0.414214|10=80|20=20|10=80|20=60", "50,32 80,40 50,40 !50,20"},
        {"|0=POLYLINE|70=0|10=0|20=0|0=VERTEX|10=20|20=20|0=VERTEX|70=16|10=50|20=90|0=VERTEX|10=80|20=20|0=SEQEND",
         "50,20 !50,90 !35,55"},
        {"|0=POLYLINE|70=64|0=VERTEX|70=192|10=20|20=20|0=VERTEX|70=192|10=80|20=20|0=SEQEND", "!50,20"},
        {"|0=RAY|10=50|20=50|11=0.0|21=1.0", "50,60 50,120 !50,40"},
        {"|0=XLINE|10=50|20=50|11=1.0|21=0.0", "-20,50 120,50 !50,60"},
        {"|0=SOLID|10=20|20=20|11=80|21=20|12=20|22=60|13=80|23=60", "50,20 50,60 20,40 80,40 !50,40"},
        {"|0=INSERT|2=B|10=40|20=10|50=90.0", "40,20 40,55 !20,10"},
        {"|0=DIMENSION|2=*D1|10=90|20=90|50=90.0", "20,25 20,75 !90,90"},
        {"|0=LINE|60=1|10=20|20=30|11=80|21=30", "!50,30"},
        {"|0=LINE|67=1|10=20|20=30|11=80|21=30", "!50,30"},
        {"|0=MTEXT|10=30|20=40|40=20|3=MM|1=", "32,42 !35,80"},
        {"|0=ATTRIB|10=30|20=40|40=20|1=MM|2=T|70=0", "32,42 !35,80"},
        {"|0=ATTRIB|10=30|20=40|40=20|1=MM|2=T|70=1", "!32,42"},
        // Without these the frame would shrink to nothing.
        {"|0=LINE|10=inf|20=30|11=80|21=30|0=LINE|10=nan|20=3|11=8|21=3|0=RAY|10=1e300|20=0|11=1|21=0"
         "|0=TEXT|10=5|20=5|40=inf|1=M|0=LWPOLYLINE|10=1|20=1|42=1e300|10=-1e21|20=5",
         "0,0 100,100 !50,50"},
    };
    // Two points make it a frame where one unit is one pixel.
    const std::string sFrame = "|0=POINT|10=0|20=0|0=POINT|10=100|20=100";
    const RECT area{0, 0, 148, 148};
    const CTestFolder folder;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ old = SelectObject(dc, CreateBitmap(area.right, area.bottom, 1, 32, nullptr));
    for (const auto& row : rows) {
        CAPTURE(row.entities);
        DrawingText text("AC1015");
        text.blocks(sBlocks).entities(sFrame + row.entities);
        host::DisplayList list;
        list.read(*host::Database::open(folder.write("plan.dwg", text.str())));
        FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
        list.paint(dc, area);
        std::istringstream places(row.places);
        for (std::string sPlace; places >> sPlace;) {
            CAPTURE(sPlace);
            const bool blank = sPlace[0] == '!';
            int x = 0, y = 0;
            REQUIRE(std::sscanf(sPlace.c_str() + blank, "%d,%d", &x, &y) == 2);
            int dark = 0;
            for (int i = 0; i < 9; ++i)  // there, or right beside it
                dark += GetPixel(dc, 23 + x + i % 3, 123 - y + i / 3) != RGB(255, 255, 255);
            CHECK((dark == 0) == blank);
        }
    }
    DeleteObject(SelectObject(dc, old));
    DeleteDC(dc);
}
