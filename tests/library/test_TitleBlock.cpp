#include "library/drawing/WorkingDatabase.h"
#include "library/expansion/ARXKeywordExpansion.h"
#include "library/files/SettingsFile.h"
#include "library/text/StringView.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "tests/library/DrawingFixture.h"

using Tesk::CARXKeywordExpansion;
using Tesk::CARXTitleBlock;
using Tesk::CWorkingDatabase;

namespace {

std::string expand(host::Database& database, const char* sTemplate)
{
    const CWorkingDatabase working(&database);
    return Tesk::toString(CARXKeywordExpansion(&database, database.path().c_str(), 1, 1).expandString(sTemplate));
}

const char kSTemplate[] = "%HALVORAN::NO%|%HALVORAN_PROJECT_LABEL%";

// Three borders, each defined by another settings file.
DrawingText threeBorders()
{
    return DrawingText().border("PROJ", {{"NR", "p1"}}).border("DOM", {{"NR", "d1"}}).border("STD", {{"NR", "s1"}});
}

}  // namespace

TEST_CASE_FIXTURE(DrawingFixture, "project, domain and standard settings are asked in this order")
{
    settings(sProject, "Job 1234", "BORDER \"A1\" \"proj.dwg\"\r\nNO \"NR\"");
    settings(sDomain, "Domain label", "BORDER \"A1\" \"DOM\"\r\nNo 'NR'");
    settings(sStandard, "Standard label", "BORDER \"A1\" \"STD\"\r\nNO NR");
    const auto database = open(threeBorders());
    CHECK(expand(*database, kSTemplate) == "p1|Job 1234");

    // A project file that defines none of the drawing's borders still names the project.
    settings(sProject, "Job 1234", "BORDER \"A1\" \"OTHER\"\r\nNO NR");
    CHECK(expand(*database, kSTemplate) == "d1|Job 1234");

    ::DeleteFileA(tree().path(sProject).c_str());
    CHECK(expand(*database, kSTemplate) == "d1|%HALVORAN_PROJECT_LABEL%");

    ::DeleteFileA(tree().path(sDomain).c_str());
    CHECK(expand(*database, kSTemplate) == "s1|%HALVORAN_PROJECT_LABEL%");
    CHECK(std::string(Tesk::getCurrentBorder().m_border.m_sBlockName) == "STD");

    ::DeleteFileA(tree().path(sStandard).c_str());
    CHECK(expand(*database, kSTemplate) == kSTemplate);
}

TEST_CASE_FIXTURE(DrawingFixture, "the first border entry whose block exists wins, inserted or not")
{
    settings(sProject, "Job",
             "BORDER \"none\" \"ABSENT\"\r\nNO WRONG\r\n}\r\nMOCKBORDERS\r\n{\r\nBORDER \"A1\" \"USED\"\r\n}\r\n"
             "TITLEBLOCKS\r\n{\r\nBORDER \"A0\" \"EMPTY\"\r\nBORDER \"A1\" \"USED\"\r\nNO NR");
    const auto database = open(DrawingText().block("EMPTY", {"NR"}).border("USED", {{"NR", "7"}}));
    const CWorkingDatabase working(database.get());
    CARXTitleBlock title(database.get(), database->path().c_str());
    CHECK_FALSE(title.searchForInstance());
    CHECK(title.isProject());
    CHECK(expand(*database, kSTemplate) == "%HALVORAN::NO%|Job");

    // The border is inserted after the drawing was opened.
    REQUIRE(database->insertBlock("EMPTY", 0, 0) == Acad::eOk);
    CHECK(title.searchForInstance());
    CHECK(title.get("NO") == "-");
    CHECK(database->openObjects() == 0);

    // What an earlier search found may be gone.
    settings(sProject, "", "BORDER \"A1\" \"ABSENT\"\r\nNO WRONG");
    title.search();
    CHECK_FALSE(title.hasInstance());
    CHECK(title.getBorderBlock() == "");
    CHECK(title.getProjectLabel() == "");
    ::DeleteFileA(tree().path(sProject).c_str());
    title.search();
    CHECK_FALSE(title.isProject());
}

TEST_CASE_FIXTURE(DrawingFixture, "the first insert supplies the attributes, the last of one tag its value")
{
    settings(sProject, "Job", "BORDER \"A1\" \"B\"\r\nno NR\r\nREV \"REV\"\r\nDATE DATE\r\nnote NOTE\r\nempty \"\"");
    const auto database = open(DrawingText()
                                   .border("B", {{"NR", "first"}, {"REV", "a"}, {"REV", "b"}, {"NOTE", "C:\\x\\y"}})
                                   .insert("B", {{"NR", "second"}, {"DATE", "today"}}));
    CHECK(expand(*database, "%HALVORAN::NO%,%HALVORAN::REV%,%HALVORAN::DATE%,%HALVORAN::EMPTY%;") == "first,b,,;");
    CHECK(expand(*database, "%HALVORAN::NOTE% %X_HALVORAN::NOTE% %HALVORAN::NR% %HALVORAN::no%") ==
          "C:\\x\\y C:/x/y %HALVORAN::NR% %HALVORAN::no%");

    const CWorkingDatabase working(database.get());
    CARXTitleBlock title(database.get(), database->path().c_str());
    CHECK(CARXTitleBlock(database.get(), database->path().c_str()).setAttributeValue("NR", "changed"));
    CHECK(title.get("NO") == "changed");  // asked each time
}

TEST_CASE_FIXTURE(DrawingFixture, "a title block is read in its own drawing, whichever is the working one")
{
    settings(sProject, "Job", "BORDER \"A1\" \"B\"\r\nNO NR");
    // The same handles in both drawings stand for different attributes.
    const auto one = open(DrawingText().border("B", {{"NR", "one"}}), "one.dwg");
    const auto two = open(DrawingText().border("B", {{"NR", "two"}}), "two.dwg");
    const CWorkingDatabase working(two.get());
    CARXTitleBlock title(one.get(), one->path().c_str());
    CHECK(title.get("NO") == "one");
    CHECK(acdbHostApplicationServices()->workingDatabase() == two.get());
}
