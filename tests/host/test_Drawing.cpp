#include "dxf/SummaryInfo.h"
#include "host/drawing/Database.h"
#include "tests/support/TestFolder.h"
#include "tests/support/ThreadCodePage.h"

#include <doctest/doctest.h>

namespace {

// The blocks with their references (abscissa, owner), and the summary.
std::string shown(const std::string& sText)
{
    const dxf::Drawing drawing(dxf::DxfFile::parse(sText, "a.dwg"), "a.dwg");
    std::string sAll;
    for (dxf::BlockNode* pBlock : drawing.graph().blocks()) {
        sAll += pBlock->name + (pBlock->layout ? "!" : "") + pBlock->xrefPath + (pBlock->unloaded ? "-" : "");
        for (const dxf::InsertNode* pInsert : pBlock->references)
            sAll += " " + std::to_string(dxf::toInt(pInsert->record->value(10))) + "@" +
                    static_cast<const dxf::BlockNode*>(pInsert->owner)->name;
        sAll += "; ";
    }
    const dxf::Summary summary = dxf::readSummary(drawing.file());
    for (const std::string& sField : summary.fields)
        sAll += sField + "/";
    for (const auto& [sKey, sValue] : summary.custom)
        sAll += sKey + "=" + sValue + " ";
    return sAll;
}

const char* const kTables = "|0=ENDSEC|0=SECTION|2=TABLES|0=TABLE|2=BLOCK_RECORD|5=1"
                            "|0=BLOCK_RECORD|5=20|2=*Model_Space|340=1|0=BLOCK_RECORD|5=21|2=*Paper_Space|340=2"
                            "|0=BLOCK_RECORD|5=22|2=Sheet|340=3|0=ENDTAB";

const char* const kProperties =
    "|0=ENDSEC|0=SECTION|2=OBJECTS|0=DICTIONARY|5=C|3=DWGPROPS|350=E|3=OTHER|350=D|0=XRECORD|5=D|100=AcDbXrecord|2=no"
    "|0=XRECORD|5=E|1=no|100=AcDbXrecord|1=DWGPROPS COOKIE|2=T|3=S|4=A|6=C|7=K|8=L|9=R|300=a=0|301=b=1|302=c|303==|304="
    "|305=f=5|306=g=6|307=h=7|308=i==|309=j=9|310=k=no|1=base|1=no";

}  // namespace

TEST_CASE("blocks, references and properties, as each release writes them")
{
    const struct {
        const char *version, *codePage;
        LCID locale;
        const char *header, *blocks, *entities, *expected;
    } rows[] = {
        {"AC1009", "ANSI_1252", CThreadLocale::english, "|9=$TITLE|1=T|9=$CUSTOMPROPERTYTAG|1=k|9=$CUSTOMPROPERTY|1=v",
         "|0=BLOCK|2=$MODEL_SPACE|0=ENDBLK|0=BLOCK|2=Detail|0=INSERT|2=b|10=4|0=ENDBLK|0=BLOCK|2=$paper_space|0=ENDBLK"
         "|0=BLOCK|2=B|0=ENDBLK|0=BLOCK|2=b|0=ENDBLK",
         "|0=INSERT|2=B|10=3|67=1|0=INSERT|2=B|10= +2|67=0|0=INSERT|2=none|10=9",
         "*Model_Space!; Detail; *Paper_Space!; B 2@*Model_Space 3@*Paper_Space 4@Detail; b; T////////k=v "},
        {"AC1015", "ANSI_1252", CThreadLocale::english, kTables,
         "|0=BLOCK|2=*Model_Space|0=ENDBLK|0=BLOCK|2=*Paper_Space|0=ENDBLK|0=BLOCK|2=SHEET|0=ENDBLK"
         "|0=BLOCK|2=X|70=4|71=1|1=x.dwg|0=ENDBLK|0=BLOCK|2=Y|70=4|71=0|1=y.dwg|0=ENDBLK",
         "|0=INSERT|102={ACAD_REACTORS|330=21|102=}|330=22|2=X|10=3|67=1"
         "|0=INSERT|102={ACAD_REACTORS|330=22|102=}|330=20|2=X|10=2|0=INSERT|330=99|2=Y|10=4|67=1",
         "*Model_Space!; *Paper_Space!; SHEET!; Xx.dwg- 2@*Model_Space 3@SHEET; Yy.dwg 4@*Paper_Space; ////////"},
        {"AC1015", "ANSI_1252", CThreadLocale::english, "|9=$TITLE|1=no", "", kProperties,
         "*Model_Space!; *Paper_Space!; T/S/A/K/C/L/R/base/a=0 b=1 f=5 g=6 h=7 i== j=9 "},
        {"AC1021", "ANSI_932", CThreadLocale::english, "|9=$AUTHOR|1=\xC3\xA9", "|0=BLOCK|2=\xC3\xA9|0=ENDBLK",
         "|0=INSERT|2=\\U+00E9|10=1", "\xE9 1@*Model_Space; *Model_Space!; *Paper_Space!; //\xE9//////"},
        {"AC1015", "ANSI_932", CThreadLocale::japanese, "",
         "|0=BLOCK|2=a\x83\x41|0=ENDBLK|0=BLOCK|2=a\x83\x61|0=ENDBLK",
         "|0=INSERT|2=A\x83\x61|10=1|0=INSERT|2=A\x83\x41|10=2",
         "a\x83\x41 2@*Model_Space; a\x83\x61 1@*Model_Space; *Model_Space!; *Paper_Space!; ////////"},
        {"AC1021", "", CThreadLocale::japanese, "", "|0=BLOCK|2=\xE3\x82\xA2|0=ENDBLK", "",
         "\x83\x41; *Model_Space!; *Paper_Space!; ////////"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.expected);
        const CThreadLocale locale(row.locale);
        DrawingText text(row.version);
        std::string sText = text.header(row.header).blocks(row.blocks).entities(row.entities).str();
        sText.replace(sText.find("ANSI_1252"), 9, row.codePage);
        CHECK(shown(sText) == row.expected);
    }
}

TEST_CASE("an object is found by its handle, the first of two with one handle")
{
    const std::string sText = DrawingText("AC1015").entities("|0=LINE|5=50|0=ARC|5=30|0=TEXT|5=50|0=POINT|5=40").str();
    const dxf::Drawing drawing(dxf::DxfFile::parse(sText, ""), "");
    for (const auto& [handle, sType] : {std::pair(0x30, "ARC"), {0x40, "POINT"}, {0x50, "LINE"}}) {
        const AcDbStub* const pNode = drawing.graph().find(static_cast<unsigned>(handle));
        CHECK((pNode != nullptr && pNode->record->type() == sType));
    }
    CHECK(drawing.graph().find(0x60) == nullptr);
    CHECK(drawing.graph().nextHandle() > 0x50);
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
        std::unique_ptr<host::Database> database = host::Database::open(folder.write("text.dwg", sText));
        const AcDbStub* const pTitle = database->graph().block("B")->references.at(0)->attributes.at(0);
        CHECK(database->file().encoding().decode(pTitle->record->value(1)) == row.text);
        REQUIRE(database->setAttribute("TITLE", row.edit) == Acad::eOk);
        CHECK(database->file().bytes().find("1\r\n" + row.edited + "\r\n") != std::string::npos);
    }
}
