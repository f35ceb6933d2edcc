#include "tests/host/DrawingFixture.h"

#include "host/drawing/Faults.h"
#include "host/drawing/Memory.h"
#include "objectarx/dbapserv.h"

#include <doctest/doctest.h>

using host::Database;
using host::Faults;

namespace {

std::unique_ptr<Database> opened(const CTestFolder& folder, const std::string& sBytes)
{
    return Database::open(folder.write("drawing.dwg", sBytes));
}

std::unique_ptr<Database> border(const CTestFolder& folder, const std::string& sVersion = "AC1015")
{
    return opened(folder, drawing(sVersion, "|9=$HANDSEED|5=99", kBorderBlock, kBorderInsert));
}

// The names a walk over the block table meets: "n" of a layout in brackets.
std::string blockWalk(Database& database)
{
    std::string sWalk;
    AcDbBlockTable* pTable = nullptr;
    REQUIRE(database.getSymbolTable(pTable, AcDb::kForRead) == Acad::eOk);
    AcDbBlockTableIterator* pIterator = nullptr;
    REQUIRE(pTable->newIterator(pIterator) == Acad::eOk);
    for (; !pIterator->done(); pIterator->step()) {
        AcDbBlockTableRecord* pRecord = nullptr;
        REQUIRE(pIterator->getRecord(pRecord, AcDb::kForRead) == Acad::eOk);
        sWalk += pRecord->isLayout()                  ? 'L'
                 : pRecord->isFromExternalReference() ? 'X'
                 : pRecord->isAnonymous()             ? 'A'
                                                      : 'b';
        pRecord->close();
    }
    delete pIterator;
    pTable->close();
    return sWalk;
}

}  // namespace

TEST_CASE("blocks, references and attributes are found in every version")
{
    const CTestFolder folder;
    for (const char* sVersion : {"AC1009", "AC1015", "AC1018", "AC1032"}) {
        CAPTURE(sVersion);
        std::unique_ptr<Database> database = border(folder, sVersion);
        // No layouts in the file: they are there all the same.
        CHECK(blockWalk(*database) == "bLL");
        const std::vector<AcDbObjectId> ids = references(*database, "bOrDeR");
        REQUIRE(ids.size() == 1);
        CHECK(handleOf(ids[0]) == "40");
        CHECK(attributes(ids[0]) == "NUMBER=A-1 TITLE=First");
        CHECK(openBlock(*database, "Nothing") == nullptr);
        CHECK(database->openObjects() == 0);
    }
}

TEST_CASE("an attribute gives its properties")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    acdbHostApplicationServices()->setWorkingDatabase(database.get());
    ads_name name;
    AcDbObjectId id;
    REQUIRE(acdbHandEnt("41", name) == RTNORM);
    REQUIRE(acdbGetObjectId(id, name) == Acad::eOk);
    AcDbEntity* pEntity = nullptr;
    REQUIRE(acdbOpenAcDbEntity(pEntity, id, AcDb::kForRead) == Acad::eOk);
    AcDbAttribute* p = AcDbAttribute::cast(pEntity);
    REQUIRE(p != nullptr);
    CHECK(p->isA() == AcDbAttribute::desc());
    CHECK(p->isKindOf(AcDbText::desc()));
    CHECK_FALSE(p->isKindOf(AcDbBlockReference::desc()));
    CHECK(p->isInvisible());
    CHECK_FALSE(p->isConstant());
    CHECK(p->isVerifiable());
    CHECK_FALSE(p->isPreset());
    CHECK(p->fieldLength() == 12);
    CHECK(p->height() == 2.5);
    CHECK(p->position().y == 3.5);
    CHECK(p->alignmentPoint().x == 6.0);
    CHECK(p->normal().z == -1.0);
    CHECK(p->oblique() == doctest::Approx(0.785398));
    CHECK(p->horizontalMode() == AcDb::kTextRight);
    CHECK(p->isMirroredInX());
    CHECK_FALSE(p->isMirroredInY());
    CHECK(p->setTextString("x") == Acad::eNotOpenForWrite);
    p->close();

    CHECK(acdbHandEnt("4711", name) == RTERROR);
    CHECK(acdbHandEnt("", name) == RTERROR);
    database.reset();
    CHECK(acdbHostApplicationServices()->workingDatabase() == nullptr);
    CHECK(acdbHandEnt("41", name) == RTERROR);
}

TEST_CASE("opening and closing are strict")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    const AcDbObjectId id = references(*database, "BORDER").at(0);
    AcDbObject *pFirst = nullptr, *pSecond = nullptr;
    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead) == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pSecond, id, AcDb::kForWrite) == Acad::eWasOpenForRead);
    CHECK(pSecond == nullptr);
    REQUIRE(acdbOpenAcDbObject(pSecond, id, AcDb::kForRead) == Acad::eOk);
    CHECK(database->openObjects() == 2);
    CHECK(pFirst->close() == Acad::eOk);
    CHECK(pSecond->close() == Acad::eOk);

    const int misuses = Database::misuses();
    CHECK(pSecond->close() == Acad::eNotOpenForRead);
    CHECK(AcDbBlockReference::cast(pSecond)->attributeIterator() == nullptr);
    CHECK(Database::misuses() == misuses + 2);

    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForWrite) == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pSecond, id, AcDb::kForRead) == Acad::eWasOpenForWrite);
    CHECK(pFirst->close() == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pFirst, AcDbObjectId(), AcDb::kForRead) == Acad::eNullObjectId);

    AcDbBlockTable* pTable = nullptr;
    REQUIRE(database->getSymbolTable(pTable, AcDb::kForRead) == Acad::eOk);
    AcDbEntity* pEntity = nullptr;
    CHECK(acdbOpenAcDbEntity(pEntity, pTable->objectId(), AcDb::kForRead) == Acad::eNotThatKindOfClass);

    REQUIRE(database->eraseLast() == Acad::eOk);
    CHECK(references(*database, "BORDER").empty());
    CHECK(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead) == Acad::eWasErased);
    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead, true) == Acad::eOk);
    pFirst->close();

    // The table was left open.
    database.reset();
    CHECK(Database::misuses() == misuses + 3);
}

TEST_CASE("references come in drawing order over model space, paper space and blocks")
{
    const CTestFolder folder;
    const std::string sBlocks = "|0=BLOCK|8=0|2=Nest|70=0|0=INSERT|5=50|8=0|2=Part|0=ENDBLK|8=0"
                                "|0=BLOCK|8=0|2=Part|70=0|0=ENDBLK|8=0|0=BLOCK|8=0|2=*U1|70=1|0=ENDBLK|8=0";
    const std::string sEntities =
        "|0=INSERT|5=51|67=1|8=0|2=Part|0=INSERT|5=53|8=0|2=PART|0=LINE|8=0|0=INSERT|5=52|8=0|2=Part";
    std::unique_ptr<Database> database = opened(folder, drawing("AC1009", "", sBlocks, sEntities));
    CHECK(blockWalk(*database) == "bbALL");
    const auto handles = [&] {
        std::string sAll;
        for (const AcDbObjectId id : references(*database, "Part"))
            sAll += handleOf(id) + " ";
        return sAll;
    };
    CHECK(handles() == "53 52 51 50 ");
    REQUIRE(database->insertBlock("part", 1, 2) == Acad::eOk);
    const std::string sWith = handles();
    CHECK(sWith.starts_with("53 52 "));
    CHECK(sWith.ends_with(" 51 50 "));
    CHECK(references(*database, "Part").size() == 5);
}

TEST_CASE("the n-th call of a kind fails, and nothing stays open or allocated")
{
    const CTestFolder folder;
    std::unique_ptr<Database> database = border(folder);
    const AcDbObjectId id = references(*database, "BORDER").at(0);
    const long allocations = host::liveAllocations();

    Faults::failNth("acdbOpenAcDbObject", 2);
    CHECK(attributes(id) == "NUMBER=A-1");
    CHECK(Faults::fired());
    Faults::failNth("AcDbText::textString", 1);
    CHECK(attributes(id) == "NUMBER=(null) TITLE=First");
    Faults::throwNth("AcDbAttribute::tag", 1, [] { throw 7; });
    CHECK_THROWS_AS(attributes(id), int);
    Faults::clear();

    Faults::failNth("*", 0);
    references(*database, "BORDER");
    // getSymbolTable, getAt, close, getBlockReferenceIds, acutNewBuffer, close
    CHECK(Faults::count() == 6);
    CHECK_FALSE(Faults::fired());
    Faults::clear();
    CHECK(host::liveAllocations() == allocations);
}
