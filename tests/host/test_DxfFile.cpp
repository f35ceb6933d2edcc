#include "host/drawing/Database.h"
#include "tests/support/FolderFrom.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

#include <filesystem>

using dxf::DxfFile;
using dxf::FileError;
using host::Database;

namespace {

// Saves the drawing under another name and gives the bytes written.
std::string resaved(Database& database, const CTestFolder& folder)
{
    database.save(folder.path("saved.dwg"));
    return CTestFolder::read(folder.path("saved.dwg"));
}

std::string reasonOf(const std::string& sPath)
{
    try {
        Database::open(sPath);
    } catch (const FileError& error) {
        CHECK(error.file() == sPath);
        return std::to_string(error.line()) + ": " + error.reason();
    }
    return "opened";
}

void checkRoundTrips(const std::string& sFolder, const std::string& sEnding)
{
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sFolder)) {
        char name[MAX_PATH] = "";
        ::WideCharToMultiByte(CP_ACP, 0, entry.path().c_str(), -1, name, sizeof name, nullptr, nullptr);
        const std::string sFile = name;
        if (!sFile.ends_with(sEnding))
            continue;
        ++count;
        CAPTURE(sFile);
        const CTestFolder folder;
        const std::string sBytes = CTestFolder::read(sFile);
        std::unique_ptr<Database> database = Database::open(sFile);
        CHECK_FALSE(database->file().isBinary());
        CHECK((resaved(*database, folder) == sBytes));

        // An edit shows, and its undo leaves no trace.
        REQUIRE(database->addLine(0, 0, 10.5, 3) == Acad::eOk);
        const std::string sEdited = resaved(*database, folder);
        CHECK(sEdited.size() > sBytes.size());
        CHECK(sEdited.find("LINE", sBytes.find("ENTITIES")) != std::string::npos);
        CHECK(Database::open(folder.path("saved.dwg"))->eraseLast() == Acad::eOk);
        REQUIRE(database->undo());
        CHECK((resaved(*database, folder) == sBytes));
    }
    CHECK(count != 0);
}

}  // namespace

TEST_CASE("the samples are written back byte for byte")
{
    const std::string sFolder = folderFrom("ZAVIK_SAMPLES");
    REQUIRE_MESSAGE(!sFolder.empty(), "ZAVIK_SAMPLES must name the folder of the samples");
    checkRoundTrips(sFolder, ".dwg");
}

TEST_SUITE("foreign")
{
    TEST_CASE("drawings of other programs are written back byte for byte")
    {
        const std::string sFolder = folderFrom("ZAVIK_SHARED");
        if (sFolder.empty()) {
            MESSAGE("NOT TESTED: the folder of shared drawings (ZAVIK_SHARED) is not here");
            return;
        }
        checkRoundTrips(sFolder, ".dxf");
    }
}

TEST_CASE("a malformed file is refused with line and reason")
{
    const CTestFolder folder;
    std::string sGood = DrawingText("AC1009").entities("|0=LINE|8=0").str();
    std::erase(sGood, '\r');
    const auto with = [&](const std::string& sOld, const std::string& sNew) {
        std::string sText = sGood;
        return sText.replace(sText.find(sOld), sOld.size(), sNew);
    };
    const struct {
        std::string bytes, expected;
    } rows[] = {
        {sGood, "opened"},
        {"\xEF\xBB\xBF" + sGood, "opened"},
        {"0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n", "opened"},
        {sGood.substr(0, sGood.size() - 1), "opened"},
        {with("0\nEOF\n", ""), "opened"},
        {sGood + "what follows is nobody's\n", "opened"},
        {"", "0: the file is empty"},
        {"0\nEOF\n", "0: no SECTION in the file"},
        {with("LINE\n8\n", "LINE\n8x\n"), "27: group code is not a number"},
        {with("LINE\n8\n", "LINE\n99999999999\n"), "27: group code is not a number"},
        {with("8\n0\n0\nENDSEC\n0\nEOF\n", "8\n"), "27: the file ends in the middle of a tag"},
        {with("8\n0\n0\nENDSEC\n0\nEOF\n", "8\n0\n"), "29: the file ends inside section ENTITIES"},
        {sGood.substr(0, sGood.size() - 15) + "0\nEOF\n", "29: section ENTITIES has no ENDSEC"},
        {with("0\nENDSEC\n", ""), "13: SECTION inside section HEADER"},
        {with("LINE", std::string("LI\0E", 4)), "26: NUL byte in the text"},
        {std::string("AutoCAD Binary DXF\r\n\x1a\0\0", 24), "0: binary DXF cannot be read"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.bytes);
        CHECK(reasonOf(folder.write("bad.dwg", row.bytes)) == row.expected);
    }
    CHECK(reasonOf(folder.path("missing.dwg")) == "0: file not found");
    CHECK(reasonOf(folder.path("no folder\\missing.dwg")) == "0: file not found");
    CHECK(reasonOf(folder.path(std::string(300, 'n'))) == "0: the path is too long");
    CHECK(reasonOf(folder.write("old.dwg", "AC2.10")) == "0: a binary drawing from before R9 (AC2.10) cannot be read");
    CHECK_THROWS_AS(Database::open(folder.path(".")), FileError);
}

TEST_CASE("a failed save keeps the old file and the modified state")
{
    const CTestFolder folder;
    const std::string sBytes = DrawingText("AC1009").str();
    const std::string sPath = folder.write("plan.dwg", sBytes);
    std::unique_ptr<Database> database = Database::open(sPath);
    database->addLine(0, 0, 1, 1);

    SetFileAttributesA(sPath.c_str(), FILE_ATTRIBUTE_READONLY);
    CHECK_THROWS_WITH_AS(database->save(sPath), (sPath + ": the file is read-only").c_str(), FileError);
    CHECK((CTestFolder::read(sPath) == sBytes));
    SetFileAttributesA(sPath.c_str(), FILE_ATTRIBUTE_NORMAL);

    // Held open by another program: the rename cannot replace it.
    const HANDLE held = CreateFileA(sPath.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    CHECK_THROWS_AS(database->save(sPath), FileError);
    CHECK(reasonOf(sPath) == "0: in use by another program");
    CloseHandle(held);
    CHECK((CTestFolder::read(sPath) == sBytes));
    CHECK(database->path() == sPath);
    CHECK(database->dbmod() == Database::kObjects);
    // No temporary file stays behind.
    const std::filesystem::directory_iterator files(folder.path());
    CHECK(std::distance(begin(files), end(files)) == 1);

    // Nor what a save left that was ended, once it is a day old; others' files stay.
    for (const char* sName : {"dwg9.tmp", "dwg1aF.TMP", "dwg2.tmp", "dwgs.tmp"}) {
        const auto time = std::filesystem::file_time_type::clock::now() - std::chrono::hours(sName[3] == '2' ? 23 : 25);
        std::filesystem::last_write_time(folder.write(sName), time);
    }
    database->save(sPath);
    CHECK(GetFileAttributesA(folder.path("dwg9.tmp").c_str()) == INVALID_FILE_ATTRIBUTES);
    CHECK(GetFileAttributesA(folder.path("dwg1aF.TMP").c_str()) == INVALID_FILE_ATTRIBUTES);
    CHECK(GetFileAttributesA(folder.path("dwg2.tmp").c_str()) != INVALID_FILE_ATTRIBUTES);
    CHECK(GetFileAttributesA(folder.path("dwgs.tmp").c_str()) != INVALID_FILE_ATTRIBUTES);
    CHECK(database->dbmod() == 0);
    CHECK(CTestFolder::read(sPath).size() > sBytes.size());
}

TEST_CASE("text comes in the ANSI code page and goes back in the file's encoding")
{
    const CTestFolder folder;
    const struct {
        std::string version, codePage, raw, text, edit, edited;
    } rows[] = {
        {"AC1009", "ANSI_1252", "Gr\xFC\xDF", "Gr\xFC\xDF", "\xC4\xE9", "\xC4\xE9"},
        {"AC1015", "ANSI_1252", "\\U+00FCx", "\xFCx", "\xE4", "\xE4"},
        {"AC1015", "dos850", "\x81x", "\xFCx", "\xE4", "\x84"},
        {"AC1021", "ANSI_1252", "Gr\xC3\xBC\xC3\x9F", "Gr\xFC\xDF", "\xC4\xE9", "\xC3\x84\xC3\xA9"},
        {"AC1024", "ANSI_1252", "\xCE\xA9", "\\U+03A9", "\\U+03A9", "\xCE\xA9"},
        {"AC1015", "big5", "\xA7\x41", "\\U+4F60", "x", "x"},
        {"AC1015", "ANSI_1251", "\xC6", "\\U+0416", "x", "x"},
        {"AC1015", "ANSI_1252", "a^ b^Jc", "a^b\nc", "a^\n", "a^ ^J"},
        {"AC1015", "no such page", "\\U+zz \\U", "\\U+zz \\U", "\\U+03A9", "\\U+03A9"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.raw);
        std::string sText = DrawingText(row.version).border("B", {{"TITLE", row.raw}}).str();
        sText.replace(sText.find("ANSI_1252"), 9, row.codePage);
        std::unique_ptr<Database> database = Database::open(folder.write("text.dwg", sText));
        const AcDbStub* const pTitle = database->graph().block("B")->references.at(0)->attributes.at(0);
        CHECK(database->file().encoding().decode(pTitle->record->value(1)) == row.text);
        REQUIRE(database->setAttribute("TITLE", row.edit) == Acad::eOk);
        CHECK(resaved(*database, folder).find("1\r\n" + row.edited + "\r\n") != std::string::npos);
    }
}
