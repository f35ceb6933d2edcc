#include "library/files/SettingsFile.h"
#include "library/files/SettingsFileReader.h"

#include "tests/library/Raised.h"
#include "tests/library/TestRandom.h"
#include "tests/support/TestFolder.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <initializer_list>

using namespace std::string_literals;
using Tesk::CBlockGroup;
using Tesk::CSettingsFile;

namespace {

CSettingsFile parse(std::initializer_list<const char*> lines)
{
    CSettingsFile settings;
    Tesk::CSettingsFileReader reader(settings, "C:\\Jobs\\1234\\");
    for (const char* sLine : lines)
        reader.readLine(sLine);
    return settings;
}

CBlockGroup parseGroup(std::initializer_list<const char*> lines)
{
    CSettingsFile settings;
    Tesk::CSettingsFileReader reader(settings, "");
    reader.readLine("TITLEBLOCKS");
    reader.readLine("{");
    for (const char* sLine : lines)
        reader.readLine(sLine);
    reader.readLine("}");
    REQUIRE(settings.m_vecTitleBlocks.size() == 1);
    return settings.m_vecTitleBlocks[0];
}

// A BORDER line's fields, joined by "/"; empty when it is refused.
std::string border(const char* sFields)
{
    const CBlockGroup group = parseGroup({(std::string("BORDER ") + sFields).c_str()});
    if (group.m_vecBorders.empty())
        return "";
    const Tesk::CBorderEntry& entry = group.m_vecBorders[0];
    std::string sAll = entry.m_sDescription.str() + "/" + entry.m_sBlockName.str();
    for (const CString& sField : entry.m_aFields)
        sAll += "/" + sField.str();
    return sAll;
}

}  // namespace

TEST_CASE("single lines, lists and their defaults")
{
    const CSettingsFile none = parse({});
    CHECK(none.m_sIssueDirectory == "<PROJECTSETTINGS>\\outgoing\\<DATE:%Y-%m-%d>");

    const CSettingsFile settings = parse({"projectlabel\tignored",
                                          "{",
                                          "  First ",
                                          "# comment",
                                          "// comment",
                                          "",
                                          " Second Label ",
                                          "}",
                                          "JobNumber",
                                          "{",
                                          "1234",
                                          "}",
                                          "ISSUEDIRECTORY",
                                          "{",
                                          "<X>\\out",
                                          "}",
                                          "JOBTITLE",
                                          "{",
                                          "One",
                                          "Two",
                                          "}",
                                          "OFFICEDETAILS",
                                          "{",
                                          "Office",
                                          "}",
                                          "CLIENTTITLE",
                                          "{",
                                          "Client",
                                          "}",
                                          "DWGSTATUS",
                                          "{",
                                          "For",
                                          "Info",
                                          "}",
                                          "DWGDISCIPLINE",
                                          "{",
                                          "Arch",
                                          "}"});
    CHECK(settings.m_sProjectLabel == "Second Label");
    CHECK(settings.m_sJobNumber == "1234");
    CHECK(settings.m_sIssueDirectory == "<X>\\out");
    CHECK(settings.m_vecJobTitle == std::vector<CString>{"One", "Two"});
    CHECK(settings.m_vecOfficeDetails == std::vector<CString>{"Office"});
    CHECK(settings.m_vecClientTitle == std::vector<CString>{"Client"});
    CHECK(settings.m_vecDrawingStatus == std::vector<CString>{"For", "Info"});
    CHECK(settings.m_vecDrawingDiscipline == std::vector<CString>{"Arch"});
}

TEST_CASE("project paths are absolute")
{
    const CSettingsFile settings =
        parse({"PROJECTPATH", "{", ".", "Drawings", "D:\\Shared", "\\\\server\\x", "/unix", "}"});
    CHECK(settings.m_sProjectPaths == ";C:\\Jobs\\1234\\;C:\\Jobs\\1234\\Drawings;D:\\Shared;"
                                      "\\\\server\\x;/unix");
}

TEST_CASE("an unknown block is skipped up to its first closing brace")
{
    const CSettingsFile settings = parse({"WHATEVER", "{", "PROJECTLABEL", "{", "no", "}", "PROJECTLABEL", "{", "yes",
                                          "}", "}", "{", "JOBNUMBER", "{", "7", "}"});
    CHECK(settings.m_sProjectLabel == "yes");
    CHECK(settings.m_sJobNumber == "7");
}

TEST_CASE("issues continue by + and &")
{
    const CSettingsFile settings =
        parse({"ISSUE", "{", "+ too early", "a First issue", "+ second line", "b\tOther", "&A  tail", "+ third",
               "& more", "b again", "}", "CADSTANDARDS", "{", "Layer Z 01", "unit", "}"});
    CHECK(settings.m_mapIssues.size() == 2);
    CHECK(settings.m_mapIssues.at("A") == "First issue\r\nsecond linetail\r\nthirdmore");
    CHECK(settings.m_mapIssues.at("B") == "again");
    CHECK(settings.m_mapCadStandards.at("LAYER") == "Z 01");
    CHECK(settings.m_mapCadStandards.at("UNIT") == "");
}

TEST_CASE("block groups")
{
    const CSettingsFile settings =
        parse({"TITLEBLOCKS", "{", "Category Sheets", "DEFAULTLAYER 0", "INSERTABLE yes", "}", "MOCKBORDERS", "{",
               "BORDER \"d\" \"b\"", "}", "TITLEBLOCKS", "{", "CATEGORY never closed"});
    REQUIRE(settings.m_vecTitleBlocks.size() == 1);
    REQUIRE(settings.m_vecMockBorders.size() == 1);
    CHECK(settings.m_vecTitleBlocks[0].m_sCategory == "Sheets");
    CHECK(settings.m_vecMockBorders[0].m_sCategory == "");
    CHECK(settings.m_vecMockBorders[0].m_sDefaultLayer == "Z010LX000");
    CHECK(!settings.m_vecMockBorders[0].m_bInsertable);
    CHECK(settings.m_vecMockBorders[0].m_vecBorders.size() == 1);

    const CBlockGroup group =
        parseGroup({"DEFAULTLAYER 0", "DEFAULTSPACE Model", "INSERTABLE yes", "ISSUEFORMAT A B", "LOCATIONPATH x\\y",
                    "title \"'TITLE_1'\"", "Sub \"it's\"", "EMPTY", "Quotes \"\"\"", "title2 plain"});
    CHECK(group.m_sDefaultLayer == "0");
    CHECK(group.m_bDefaultSpaceIsModel);
    CHECK(group.m_bInsertable);
    CHECK(group.m_sIssueFormat == "A B");
    CHECK(group.m_sLocationPath == "x\\y");
    const std::map<CString, CString> mapExpected{
        {"TITLE", "TITLE_1"}, {"SUB", "it's"}, {"EMPTY", ""}, {"QUOTES", ""}, {"TITLE2", "plain"}};
    CHECK(group.m_mapOther == mapExpected);
    CHECK(!parseGroup({"DEFAULTSPACE paper"}).m_bDefaultSpaceIsModel);
    CHECK(!parseGroup({"INSERTABLE 1"}).m_bInsertable);
}

TEST_CASE("border lines hold six, five or two fields")
{
    CHECK(border("\"A1\" \"A1.dwg\" \"3\" \"4\" \"5\" \"6\"") == "A1/A1/3/4/5/6");
    CHECK(border("\"A1\"\"A1.x.y\"\t\"3.0\"\"4\"\"5\"") == "A1/A1/3.0/4/5/");
    CHECK(border("\"A 1\" \" b\"") == "A 1/ b////");
    CHECK(border("\"A\" \"B\" \"3\"") == "");
    CHECK(border("\"A\" \"B\" \"3\" \"4\"") == "");
    CHECK(border("\"A\"") == "");
    CHECK(border("A B") == "");
    CHECK(border("") == "");
    CHECK(border("\"A\" \"B\" \"\" \"4\" \"5\" \"6\"") == "A/B////");  // an empty field ends the scan
    CHECK(border("\"A\" \"B\" x") == "A/B////");
    CHECK(border("\"A\" \"B") == "A/B////");  // the last one may be open
    CHECK(border("\"A\" \"1\" \"2\" \"3\" \"4\" \"5\" \"6\"") == "A/1/2/3/4/5");
    const std::string sLong(1024 * 1024, 'x');
    CHECK(border(("\"A\" \"" + sLong + "\"").c_str()) == "A/" + sLong + "////");
}

TEST_CASE("border lines scan as by sscanf")
{
    CTestRandom random;
    CAPTURE(random.seed());
    for (int i = 0; i < 5000; ++i) {
        const std::string sValue = random.text("\" \" \" \"a\" \"b\" \t a . x", 14);
        std::string sLine = random.once(2) ? sValue : random.text("\"a\" \"b.c\" \"\" \t", 8);
        sLine.erase(sLine.find_last_not_of("\t") + 1);  // as the line is trimmed
        char aFields[6][128] = {};
        int iCount = sscanf(sLine.c_str(),
                            " \"%127[^\"]\" \"%127[^\"]\" \"%127[^\"]\" \"%127[^\"]\" \"%127[^\"]\" \"%127[^\"]\"",
                            aFields[0], aFields[1], aFields[2], aFields[3], aFields[4], aFields[5]);
        std::string sExpected;
        if (iCount == 6 || iCount == 5 || iCount == 2) {
            aFields[1][strcspn(aFields[1], ".")] = 0;
            for (int field = 0; field < 6; ++field)
                sExpected += std::string(field ? "/" : "") + (field < iCount ? aFields[field] : "");
        }
        CAPTURE(sLine);
        REQUIRE(border(sLine.c_str()) == sExpected);
    }
}

TEST_CASE("a file that cannot be read leaves the defaults; reading it says why")
{
    const CTestFolder tree;
    const CSettingsFile missing(tree.path("none\\ProjectSettings.txt").c_str());
    CHECK(!missing.m_bValid);
    CHECK(missing.m_sIssueDirectory == "<PROJECTSETTINGS>\\outgoing\\<DATE:%Y-%m-%d>");
    CHECK(!CSettingsFile(tree.path("").c_str()).m_bValid);

    tree.write("ProjectSettings.txt", "PROJECTLABEL\r\n{\r\nLa\0bel\r\n}\r\nPROJECTPATH\n{\n.\n}"s);
    CSettingsFile settings(tree.path("ProjectSettings.txt").c_str());
    CHECK(settings.m_bValid);
    CHECK(settings.m_sProjectLabel == "La\0bel"s);
    CHECK(settings.m_sProjectPaths.str() == ";" + tree.path(""));

    const std::string sOther = tree.path("other.txt");
    CHECK(fileErrorOf([&] { settings.read(sOther.c_str()); }) == "2 " + sOther);
    CHECK(!settings.m_bValid);
    CHECK(settings.m_sProjectLabel == "");
}

TEST_CASE("whatever a file holds, reading it ends, and its record fits its lines")
{
#ifdef _GLIBCXX_ASSERTIONS
    constexpr DWORD duration = 10000;
#else
    constexpr DWORD duration = 1000;
#endif
    CTestRandom random;
    CAPTURE(random.seed());
    const char* const sPieces =
        "PROJECTPATH PROJECTLABEL ISSUE CADSTANDARDS TITLEBLOCKS MOCKBORDERS JOBTITLE BORDER { } "
        "{ } # // \" \" \" ' + & . \\ / : ; \t \x81 \xff \x01 a B DEFAULTSPACE MODEL = %s";
    const DWORD start = ::GetTickCount();
    int iGroups = 0;
    while (::GetTickCount() - start < duration) {
        CSettingsFile settings;
        Tesk::CSettingsFileReader reader(settings, "C:\\");
        std::size_t lines = 0, bytes = 0, closed = 0;
        for (std::size_t count = random.below(60); count > 0; --count) {
            std::string sLine = random.text(sPieces, random.once(4) ? 20 : 1);
            if (random.once(3))
                sLine.insert(random.below(sLine.size() + 1), " ");
            if (random.once(500))
                sLine.append(random.below(100000), static_cast<char>(random.below(256)));
            reader.readLine(sLine);
            ++lines;
            bytes += sLine.size();
            closed += sLine.find('}') != std::string::npos;
        }
        const std::size_t groups = settings.m_vecTitleBlocks.size() + settings.m_vecMockBorders.size();
        iGroups += static_cast<int>(groups);
        REQUIRE(groups <= closed);
        REQUIRE(settings.m_sProjectPaths.str().size() <= bytes + 4 * lines);
        for (const auto& [sKey, sText] : settings.m_mapIssues)
            REQUIRE(sKey.str().find_first_of("+ \t") == std::string::npos);
        for (const CBlockGroup& group : settings.m_vecTitleBlocks) {
            for (const Tesk::CBorderEntry& entry : group.m_vecBorders) {
                REQUIRE(!entry.m_sDescription.IsEmpty());
                REQUIRE(entry.m_sBlockName.Find('.') == -1);
            }
        }
    }
    CHECK(iGroups > 0);
}
