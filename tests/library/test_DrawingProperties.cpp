#include "dxf/Memory.h"
#include "dxf/SummaryInfo.h"
#include "library/drawing/ARXDrawingProperties.h"
#include "tests/library/DrawingFixture.h"

#include <vector>

using Tesk::CARXDrawingProperties;

namespace {

DrawingText described()
{
    return DrawingText()
        .variable("TITLE", "Plan")
        .variable("SUBJECT", "Ground floor")
        .variable("AUTHOR", "K. M\xFCller")
        .variable("COMMENTS", "two")
        .variable("KEYWORDS", "a, b")
        .variable("LASTSAVEDBY", "km")
        .variable("REVISIONNUMBER", "4")
        .variable("HYPERLINKBASE", "http://base/")
        .custom("b", "1")
        .custom("A", "2")
        .custom("a", "3");
}

std::vector<CString*> fieldsOf(CARXDrawingProperties& p)
{
    return {&p.getTitle(),    &p.getSubject(),     &p.getAuthor(),         &p.getComments(),
            &p.getKeywords(), &p.getLastSavedBy(), &p.getRevisionNumber(), &p.getHyperLink()};
}

std::string fields(CARXDrawingProperties& properties)
{
    std::string sAll;
    for (const CString* pField : fieldsOf(properties))
        sAll += "/" + std::string(*pField);
    return sAll;
}

// Keys and values in the drawing's own order.
std::string customOf(host::Database& database)
{
    std::string sAll;
    for (const auto& [sKey, sValue] : dxf::readSummary(database.file()).custom)
        sAll += sKey + "=" + sValue + ";";
    return sAll;
}

}  // namespace

TEST_CASE_FIXTURE(DrawingFixture, "summary properties are read, and again after they changed")
{
    const long allocations = host::liveAllocations();
    const auto database = open(described().custom("A", "later"));
    CARXDrawingProperties properties(database.get());
    // Of two entries with one key the later one counts.
    CHECK(properties.getCustomEntries() == std::map<CString, CString>{{"A", "later"}, {"a", "3"}, {"b", "1"}});
    CHECK(properties.getNumberOfCustomEntries() == 4);

    REQUIRE(database->setSummaryField("title", "Elevation") == Acad::eOk);
    properties.read();
    CHECK(properties.getTitle() == "Elevation");

    CHECK_FALSE(CARXDrawingProperties().isValid());
    CHECK(host::liveAllocations() == allocations);
}

TEST_CASE_FIXTURE(DrawingFixture, "summary properties are written, custom ones in the order of their keys")
{
    auto database = open(described());
    CHECK(customOf(*database) == "b=1;A=2;a=3;");
    CARXDrawingProperties properties(database.get());
    char sNext[] = "0";
    for (CString* const pField : fieldsOf(properties)) {
        *pField = sNext;
        ++sNext[0];
    }
    properties.getCustomEntries().erase("A");
    properties.getCustomEntries()["Z"] = "new";
    properties.write();
    CHECK(database->dbmod() != 0);

    database->save(path("written.dwg"));
    database = host::Database::open(path("written.dwg"));
    CHECK(customOf(*database) == "Z=new;a=3;b=1;");
    CARXDrawingProperties again(database.get());
    CHECK(fields(again) == "/0/1/2/3/4/5/6/7");
    CHECK(again.getCustomEntries() == properties.getCustomEntries());
}
