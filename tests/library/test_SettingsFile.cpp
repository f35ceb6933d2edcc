#include "library/files/SettingsFile.h"
#include "library/text/StringView.h"

#include "tests/library/Raised.h"
#include "tests/support/TestFolder.h"

#include <windows.h>
#include <doctest/doctest.h>

using namespace std::string_literals;
using Tesk::CBlockGroup;
using Tesk::CSettingsFile;

namespace {

// The record of these lines, in a file of the folder C:\\Jobs\\1234.
CSettingsFile parse(const std::string& sLines)
{
    CSettingsFile settings;
    Tesk::CTextFileContents contents(sLines);
    settings.merge(Tesk::parseProject(contents), "C:\\Jobs\\1234\\");
    return settings;
}

CBlockGroup parseGroup(const std::string& sLines)
{
    const CSettingsFile settings = parse("TITLEBLOCKS\n{\n" + sLines + "\n}");
    REQUIRE(settings.m_vecTitleBlocks.size() == 1);
    return settings.m_vecTitleBlocks[0];
}

// A BORDER line's fields, joined by "/"; empty when it is refused.
std::string border(const std::string& sFields)
{
    const CBlockGroup group = parseGroup("BORDER " + sFields);
    if (group.m_vecBorders.empty())
        return "";
    const Tesk::CBorderEntry& entry = group.m_vecBorders[0];
    std::string sAll = Tesk::toString(entry.m_sDescription) + "/" + Tesk::toString(entry.m_sBlockName);
    for (const CString& sField : entry.m_aFields)
        sAll += "/" + Tesk::toString(sField);
    return sAll;
}

}  // namespace

TEST_CASE("single lines, lists and their defaults")
{
    const CSettingsFile settings =
        parse("projectlabel\tignored\n{\n  First \n# comment\n// comment\n\n {Second Label \n}\n"
              "JobNumber\n{\n1234\n}\nISSUEDIRECTORY\n{\n<X>\\out\n}\nJOBTITLE\n{\nOne\nTwo\n}\n"
              "OFFICEDETAILS\n{\nOffice\n}\nCLIENTTITLE\n{\nClient\n}\nDWGSTATUS\n{\nFor\nInfo\n}\n"
              "DWGDISCIPLINE\n{\nArch\n}");
    CHECK(settings.m_sProjectLabel == "{Second Label");
    CHECK(settings.m_sJobNumber == "1234");
    CHECK(settings.m_sIssueDirectory == "<X>\\out");
    CHECK(settings.m_vecJobTitle == std::vector<CString>{"One", "Two"});
    CHECK(settings.m_vecOfficeDetails == std::vector<CString>{"Office"});
    CHECK(settings.m_vecClientTitle == std::vector<CString>{"Client"});
    CHECK(settings.m_vecDrawingStatus == std::vector<CString>{"For", "Info"});
    CHECK(settings.m_vecDrawingDiscipline == std::vector<CString>{"Arch"});
}

TEST_CASE("project paths are absolute; an unknown block is skipped up to its first closing brace")
{
    const CSettingsFile settings = parse("PROJECTPATH\n{\n.\nDrawings\nD:\\Shared\n\\\\server\\x\n/unix\n}\n"
                                         "WHATEVER\n{\nJOBNUMBER\n{\nno\n}\nJOBNUMBER\n{\nyes\n}\n}\n{");
    CHECK(settings.m_sProjectPaths == ";C:\\Jobs\\1234\\;C:\\Jobs\\1234\\Drawings;D:\\Shared;"
                                      "\\\\server\\x;/unix");
    CHECK(settings.m_sJobNumber == "yes");
}

TEST_CASE("issues continue by + and &")
{
    const CSettingsFile settings = parse(
        "ISSUE\n{\n+ too early\na First issue\n+ second line\nb\tOther\n&A  tail\nof+it third\n& more\nb again\n}\n"
        "CADSTANDARDS\n{\nLayer Z 01\nunit\n}");
    CHECK(settings.m_mapIssues.size() == 2);
    CHECK(settings.m_mapIssues.at("A") == "First issue\r\nsecond linetail\r\nthirdmore");
    CHECK(settings.m_mapIssues.at("B") == "again");
    CHECK(settings.m_mapCadStandards.at("LAYER") == "Z 01");
    CHECK(settings.m_mapCadStandards.at("UNIT") == "");
}

TEST_CASE("block groups")
{
    const CSettingsFile settings =
        parse("TITLEBLOCKS\n{\nCategory Sheets\nDEFAULTLAYER 0\nINSERTABLE yes\n}\n"
              "MOCKBORDERS\n{\nBORDER \"d\" \"b\"\n}\nTITLEBLOCKS\n{\nCATEGORY never closed");
    REQUIRE(settings.m_vecTitleBlocks.size() == 1);
    REQUIRE(settings.m_vecMockBorders.size() == 1);
    CHECK(settings.m_vecTitleBlocks[0].m_sCategory == "Sheets");
    CHECK(settings.m_vecMockBorders[0].m_sCategory == "");
    CHECK(settings.m_vecMockBorders[0].m_sDefaultLayer == "Z010LX000");
    CHECK(!settings.m_vecMockBorders[0].m_bInsertable);
    CHECK(settings.m_vecMockBorders[0].m_vecBorders.size() == 1);

    const CBlockGroup group =
        parseGroup("DEFAULTLAYER 0\nDEFAULTSPACE Model\nINSERTABLE yes\nISSUEFORMAT A B\nLOCATIONPATH x\\y\n"
                   "title \"'TITLE_1'\"\nSub \"it's\"\nEMPTY\nQuotes \"\"\"\ntitle2 plain");
    CHECK(group.m_sDefaultLayer == "0");
    CHECK(group.m_bDefaultSpaceIsModel);
    CHECK(group.m_bInsertable);
    CHECK(group.m_sIssueFormat == "A B");
    CHECK(group.m_sLocationPath == "x\\y");
    const std::map<CString, CString> mapExpected{
        {"TITLE", "TITLE_1"}, {"SUB", "it's"}, {"EMPTY", ""}, {"QUOTES", ""}, {"TITLE2", "plain"}};
    CHECK(group.m_mapOther == mapExpected);
    CHECK(!parseGroup("DEFAULTSPACE paper\nINSERTABLE 1").m_bDefaultSpaceIsModel);
}

TEST_CASE("border lines scan as by sscanf, but for fields of any length")
{
    const std::string sLong(1024 * 1024, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"\"A\" \"" + sLong + "\"", "A/" + sLong + "////"},
        {"\"a\"\t\"b.c.d\"\"c\" \"d.\" \"e\" \"f\" \"g\"", "a/b/c/d./e/f"},
        {"\"a\" \"b\" \"c\" \"d\" \"e\" \" f", "a/b/c/d/e/ f"},
        {"\"a\" \"b\" \"\"", "a/b////"},  // an empty field ends the line
        {"\"a\" \"b\" x", "a/b////"},
        {"\"a\" \"b\" \"c\"", ""},
        {"\"a\" \"b\" \"c\" \"d\"", ""},
        {"\"a\" x", ""},
        {"a \"b\"", ""},
    };
    for (const auto& [sLine, sFields] : cases) {
        CAPTURE(sLine);
        CHECK(border(sLine) == sFields);
    }
}

TEST_CASE("a file that cannot be read leaves the defaults; reading it says why")
{
    const CTestFolder tree;
    const CSettingsFile missing(tree.path("").c_str());
    CHECK(!missing.m_bValid);
    CHECK(missing.m_sIssueDirectory == "<PROJECTSETTINGS>\\outgoing\\<DATE:%Y-%m-%d>");
    tree.write("ProjectSettings.txt", "PROJECTLABEL\r\n{\r\nLa\0bel\r\n}\r\nPROJECTPATH\n{\n.\n}"s);
    CSettingsFile settings(tree.path("ProjectSettings.txt").c_str());
    CHECK(settings.m_bValid);
    CHECK(Tesk::toString(settings.m_sProjectLabel) == "La\0bel"s);
    CHECK(Tesk::toString(settings.m_sProjectPaths) == ";" + tree.path(""));

    const std::string sOther = tree.path("other.txt");
    CHECK(fileErrorOf([&] { settings.read(sOther.c_str()); }) == "2 " + sOther);
    CHECK(!settings.m_bValid);
    CHECK(settings.m_sProjectLabel == "");
}
