#include "tests/host/DrawingFixture.h"

#include "host/drawing/Memory.h"
#include "host/drawing/SummaryInfo.h"

#include <doctest/doctest.h>

using host::Database;

namespace {

std::unique_ptr<Database> border(const CTestFolder& folder, const std::string& sVersion = "AC1018",
                                 const std::string& sHeader = "")
{
    const std::string sBytes =
        drawing(sVersion, "|9=$HANDSEED|5=99|9=$LTSCALE|40=1.0" + sHeader, kBorderBlock, kBorderInsert);
    return Database::open(folder.write("border.dwg", sBytes));
}

std::string summaryText(Database& database)
{
    const host::Summary summary = host::readSummary(database);
    std::string sText;
    for (const std::string& sField : summary.fields)
        sText += sField + "|";
    for (const auto& [sKey, sValue] : summary.custom)
        sText += sKey + "=" + sValue + "|";
    return sText;
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

    database->notifyNoChange(3);
    CHECK(reactor.heard() == "opened0 modified0 opened0 modified0 opened0 modified0");
    database.reset();
    CHECK(reactor.heard() == "goodbye");
}

TEST_CASE("what cannot be edited answers a status and changes nothing")
{
    std::unique_ptr<Database> database = Database::createNew();
    CHECK(database->eraseLast() == Acad::eInvalidInput);
    CHECK(database->insertBlock("nothing", 0, 0) == Acad::eKeyNotFound);
    CHECK(database->insertBlock("*Model_Space", 0, 0) == Acad::eKeyNotFound);
    CHECK(database->setAttribute("NUMBER", "1") == Acad::eKeyNotFound);
    CHECK(database->setHeaderVariable("NOSUCH", {"1"}) == Acad::eKeyNotFound);
    CHECK(database->setHeaderVariable("LTSCALE", {"1", "2"}) == Acad::eInvalidInput);
    CHECK(database->attachXref("missing.dwg") == Acad::eFileNotFound);
    CHECK(database->detachXref("missing") == Acad::eKeyNotFound);
    CHECK_FALSE(database->undo());
    CHECK(database->dbmod() == 0);
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
    // What is no edit stays beside what is.
    database->save(folder.path("saved.dwg"));
    database->markModified(Database::kView);
    database->addLine(0, 0, 1, 1);
    CHECK(database->dbmod() == 17);
    REQUIRE(database->undo());
    CHECK(database->dbmod() == 16);

    database->dxfIn(folder.path("saved.dwg"));
    CHECK(database->dbmod() == 17);
    CHECK_THROWS_AS(database->dxfIn(folder.path("none.dwg")), host::FileError);
    CHECK(references(*database, "Border").size() == 1);
}

TEST_CASE("an object edited through the API is told of once open and once closed")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    const AcDbObjectId insert = references(*database, "Border").at(0);
    AcDbEntity* pEntity = nullptr;
    REQUIRE(acdbOpenAcDbEntity(pEntity, insert, AcDb::kForRead) == Acad::eOk);
    AcDbObjectIterator* pIterator = AcDbBlockReference::cast(pEntity)->attributeIterator();
    const AcDbObjectId id = pIterator->objectId();
    delete pIterator;
    pEntity->close();

    RecordingReactor reactor;
    database->addReactor(&reactor);
    AcDbObject* pObject = nullptr;
    REQUIRE(acdbOpenAcDbObject(pObject, id, AcDb::kForWrite) == Acad::eOk);
    CHECK(reactor.heard() == "");
    AcDbAttribute* pAttribute = AcDbAttribute::cast(pObject);
    CHECK(pAttribute->setTextString("1") == Acad::eOk);
    CHECK(pAttribute->setTextString("2") == Acad::eOk);
    CHECK(reactor.heard() == "opened1");
    CHECK(pAttribute->close() == Acad::eOk);
    CHECK(reactor.heard() == "modified1");
    CHECK(attributes(insert) == "NUMBER=2 TITLE=First");
    database->removeReactor(&reactor);
}

TEST_CASE("an insert takes the defaults of its block's attributes")
{
    const CTestFolder folder;
    for (const char* sVersion : {"AC1009", "AC1018"}) {
        std::unique_ptr<Database> database = border(folder, sVersion);
        REQUIRE(database->insertBlock("BORDER", 10, 20) == Acad::eOk);
        database->save(folder.path("inserted.dwg"));
        database = Database::open(folder.path("inserted.dwg"));
        const std::vector<AcDbObjectId> ids = references(*database, "border");
        REQUIRE(ids.size() == 2);
        CHECK(attributes(ids[1]) == "NUMBER=none");
        // New handles are written, and the seed stays above them.
        const std::string sHandle = handleOf(ids[1]);
        CHECK(database->file().bytes().find("\r\n" + sHandle + "\r\n") != std::string::npos);
        CHECK(host::toHandle(database->headerVariable("HANDSEED").at(0).text) > host::toHandle(sHandle));
    }
}

TEST_CASE("reactors are kept in order, once each, and may go while they are told")
{
    class Leaver : public RecordingReactor {
    public:
        void objectAppended(const AcDbDatabase* p, const AcDbObject* o) override
        {
            RecordingReactor::objectAppended(p, o);
            p->removeReactor(this);
            p->removeReactor(other);
        }
        AcDbDatabaseReactor* other = nullptr;
    };
    std::unique_ptr<Database> database = Database::createNew();
    Leaver leaver;
    RecordingReactor gone, stays;
    leaver.other = &gone;
    CHECK(database->addReactor(nullptr) == Acad::eNullObjectPointer);
    CHECK(database->removeReactor(&gone) == Acad::eKeyNotFound);
    for (RecordingReactor* p : {static_cast<RecordingReactor*>(&leaver), &gone, &stays})
        CHECK(database->addReactor(p) == Acad::eOk);
    CHECK(database->addReactor(&stays) == Acad::eDuplicateKey);
    database->addLine(0, 0, 1, 1);
    database->addLine(0, 0, 1, 1);
    CHECK(leaver.calls == 1);
    CHECK(gone.calls == 0);
    CHECK(stays.calls == 2);
    CHECK(database->addReactor(&gone) == Acad::eOk);
    database->removeReactor(&stays);
    database->removeReactor(&gone);
}

TEST_CASE("summary information is kept where the version keeps it")
{
    const CTestFolder folder;
    const std::string sObjects = dxf("0=SECTION|2=OBJECTS|0=DICTIONARY|5=C|330=0|100=AcDbDictionary|0=ENDSEC|0=EOF");
    for (const std::string sVersion : {"AC1009", "AC1015", "AC1018", "AC1027"}) {
        CAPTURE(sVersion);
        std::string sBytes = drawing(sVersion, "|9=$HANDSEED|5=99", "", "");
        sBytes.replace(sBytes.find(dxf("0=EOF")), std::string::npos, sObjects);
        std::unique_ptr<Database> database = Database::open(folder.write("summary.dwg", sBytes));
        CHECK(summaryText(*database) == "||||||||");

        AcDbDatabaseSummaryInfo* pInfo = nullptr;
        REQUIRE(acdbGetSummaryInfo(database.get(), pInfo) == Acad::eOk);
        pInfo->setTitle("Title \xFC");
        pInfo->setHyperlinkBase("http://x");
        pInfo->setLastSavedBy(nullptr);
        CHECK(pInfo->addCustomSummaryInfo("", "x") == Acad::eInvalidKey);
        for (const char* sKey : {"B", "A", "A"})
            CHECK(pInfo->addCustomSummaryInfo(sKey, "v=1") == Acad::eOk);
        CHECK(pInfo->deleteCustomSummaryInfo(3) == Acad::eInvalidIndex);
        // A copy: the drawing hears of it when it is put.
        CHECK(summaryText(*database) == "||||||||");
        CHECK(acdbPutSummaryInfo(pInfo, database.get()) == Acad::eOk);
        CHECK(acdbPutSummaryInfo(pInfo) == Acad::eNoDatabase);
        CHECK(database->dbmod() != 0);
        database->save(folder.path("put.dwg"));
        CHECK(acdbPutSummaryInfo(pInfo, database.get()) == Acad::eOk);
        CHECK(database->dbmod() == 0);
        CHECK((CTestFolder::read(folder.path("put.dwg")).find("DWGPROPS") != std::string::npos) ==
              (sVersion == "AC1015"));

        database = Database::open(folder.path("put.dwg"));
        CHECK(summaryText(*database) == "Title \xFC|||||||http://x|B=v=1|A=v=1|A=v=1|");
        CHECK(pInfo->deleteCustomSummaryInfo(0) == Acad::eOk);
        CHECK(acdbPutSummaryInfo(pInfo, database.get()) == Acad::eOk);
        CHECK(database->setSummaryField("title", "Other") == Acad::eOk);
        CHECK(database->setSummaryField("A", "2") == Acad::eOk);
        CHECK(summaryText(*database) == "Other|||||||http://x|A=2|A=v=1|");
        CHECK(database->undo());
        CHECK(summaryText(*database) == "Other|||||||http://x|A=v=1|A=v=1|");
        delete pInfo;
    }
}
