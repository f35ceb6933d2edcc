#include "host/drawing/Database.h"
#include "objectarx/summinfo.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

using host::Database;

namespace {

// A border with an attribute that is asked for, and one that is not.
constexpr char kBorderBlock[] = "|0=BLOCK|8=0|2=Border|70=2|10=1.0|20=0.0|0=ATTDEF|5=30|8=0|10=3.0|20=4.0|40=2.5|1=none"
                                "|3=Number?|2=NUMBER|70=8|0=ATTDEF|5=31|8=0|10=3.0|20=1.0|40=2.5|1=fixed|3=|2=FIX|70=2"
                                "|0=ENDBLK|8=0";

class RecordingReactor : public AcDbDatabaseReactor {
public:
    // The calls since the last look, a blank between them; each with DBMOD when it came.
    std::string heard()
    {
        std::string sAll;
        std::swap(sAll, m_sHeard);
        return sAll;
    }

    void objectAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "appended"); }
    void objectUnAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "unAppended"); }
    void objectReAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "reAppended"); }
    void objectOpenedForModify(const AcDbDatabase* p, const AcDbObject*) override { note(p, "opened"); }
    void objectModified(const AcDbDatabase* p, const AcDbObject*) override { note(p, "modified"); }
    void objectErased(const AcDbDatabase* p, const AcDbObject*, Adesk::Boolean bErased) override
    {
        note(p, bErased ? "erased" : "unErased");
    }
    void headerSysVarWillChange(const AcDbDatabase* p, const char* s) override { note(p, std::string("will:") + s); }
    void headerSysVarChanged(const AcDbDatabase* p, const char* s, Adesk::Boolean bOk) override
    {
        note(p, std::string(bOk ? "did:" : "failed:") + s);
    }
    void goodbye(const AcDbDatabase*) override { m_sHeard += m_sHeard.empty() ? "goodbye" : " goodbye"; }

private:
    void note(const AcDbDatabase* p, const std::string& sCall)
    {
        m_sHeard += (m_sHeard.empty() ? "" : " ") + sCall + std::to_string(host::Database::of(p)->dbmod());
    }
    std::string m_sHeard;
};

std::unique_ptr<Database> border(const CTestFolder& folder)
{
    DrawingText text("AC1018");
    text.header("|9=$HANDSEED|5=99|9=$LTSCALE|40=1.0").blocks(kBorderBlock);
    text.insert("BORDER", {{"NUMBER", "A-1"}, {"TITLE", "First"}});
    return Database::open(folder.write("border.dwg", text.str()));
}

}  // namespace

TEST_CASE("edits are heard after DBMOD is set, and undo takes them back")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    const std::string sBytes = CTestFolder::read(database->path());
    RecordingReactor reactor;
    REQUIRE(database->addReactor(&reactor) == Acad::eOk);

    const struct {
        const char* name;
        Acad::ErrorStatus (*edit)(Database&);
        const char *heard, *undone;
    } rows[] = {
        {"line", [](Database& d) { return d.addLine(0, 0, 1, 1); }, "appended1", "unAppended0"},
        {"erase", [](Database& d) { return d.eraseLast(); }, "erased1 erased1 erased1",
         "unErased0 unErased0 unErased0"},
        {"insert", [](Database& d) { return d.insertBlock("border", 5, 5); }, "appended1 appended1",
         "unAppended0 unAppended0"},
        {"attribute", [](Database& d) { return d.setAttribute("number", "B-2"); }, "opened1 modified1",
         "opened0 modified0"},
        {"variable", [](Database& d) { return d.setHeaderVariable("LTSCALE", {"2.0"}); }, "will:LTSCALE4 did:LTSCALE4",
         "will:LTSCALE0 did:LTSCALE0"},
        {"summary", [](Database& d) { return d.setSummaryField("Title", "T"); }, "will:TITLE4 did:TITLE4",
         "will:TITLE0 did:TITLE0"},
        {"custom", [](Database& d) { return d.setSummaryField("Client", "C"); },
         "will:CUSTOMPROPERTY4 did:CUSTOMPROPERTY4", "will:CUSTOMPROPERTY0 did:CUSTOMPROPERTY0"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.name);
        REQUIRE(row.edit(*database) == Acad::eOk);
        CHECK(reactor.heard() == row.heard);
        CHECK((database->file().bytes() != sBytes));
        REQUIRE(database->undo());
        CHECK(reactor.heard() == row.undone);
        CHECK((database->file().bytes() == sBytes));
        CHECK(database->dbmod() == 0);
    }
    CHECK_FALSE(database->undo());
    REQUIRE(database->redo());
    CHECK(reactor.heard() == "will:CUSTOMPROPERTY4 did:CUSTOMPROPERTY4");
    REQUIRE(database->undo());
    reactor.heard();

    database.reset();
    CHECK(reactor.heard() == "goodbye");
}

TEST_CASE("DBMOD is 0 exactly in the saved state")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    database->addLine(0, 0, 1, 1);
    database->save(folder.path("saved.dwg"));
    CHECK(database->dbmod() == 0);
    // Away from the saved state backwards, and there again.
    REQUIRE(database->undo());
    CHECK(database->dbmod() == 1);
    REQUIRE(database->redo());
    CHECK(database->dbmod() == 0);
    // A new edit from before makes the saved state unreachable.
    REQUIRE(database->undo());
    database->setHeaderVariable("LTSCALE", {"3.0"});
    CHECK(database->dbmod() == 5);
    REQUIRE(database->undo());
    CHECK(database->dbmod() == 1);

    database->save(folder.path("saved.dwg"));
    database->dxfIn(folder.path("saved.dwg"));
    CHECK(database->dbmod() == 1);
    CHECK_THROWS_AS(database->dxfIn(folder.path("none.dwg")), dxf::FileError);
    CHECK(database->graph().block("Border")->references.size() == 1);
}

TEST_CASE("a binary drawing is not edited, whoever asks")
{
    const CTestFolder folder;
    const std::string sBytes = "AC1015" + std::string(600, '\0');
    const std::unique_ptr<Database> database = Database::open(folder.write("binary.dwg", sBytes));
    CHECK_THROWS_AS(database->addLine(0, 0, 1, 1), dxf::FileError);
    CHECK_THROWS_AS(database->dxfIn(border(folder)->path()), dxf::FileError);
    CHECK_THROWS_AS(border(folder)->dxfIn(database->path()), dxf::FileError);
    CHECK(database->changeOpenObject(database->graph().modelSpace(), "") == Acad::eNotApplicable);
    AcDbDatabaseSummaryInfo* pSummary = nullptr;
    REQUIRE(acdbGetSummaryInfo(database.get(), pSummary) == Acad::eOk);
    pSummary->setTitle("T");
    CHECK(acdbPutSummaryInfo(pSummary, database.get()) == Acad::eNotApplicable);
    delete pSummary;
    CHECK(database->dbmod() == 0);
    CHECK_THROWS_AS(database->saveCopy(folder.path("binary.dxf")), dxf::FileError);
    database->saveCopy(folder.path("copy.dwg"));
    CHECK((CTestFolder::read(folder.path("copy.dwg")) == sBytes));
}
