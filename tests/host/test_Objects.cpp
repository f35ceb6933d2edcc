#include "host/drawing/Database.h"
#include "objectarx/dbsymtb.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

using host::Database;

TEST_CASE("opening and closing are strict")
{
    const CTestFolder folder;
    const DrawingText text = DrawingText().border("BORDER", {{"NUMBER", "A-1"}});
    std::unique_ptr<Database> database = Database::open(folder.write("drawing.dwg", text.str()));
    const AcDbObjectId id = AcDbObjectId(database->graph().block("BORDER")->references.at(0));
    AcDbObject *pFirst = nullptr, *pSecond = nullptr;
    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForWrite) == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pSecond, id, AcDb::kForRead) == Acad::eWasOpenForWrite);
    CHECK(pFirst->close() == Acad::eOk);
    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead) == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pSecond, id, AcDb::kForWrite) == Acad::eWasOpenForRead);
    CHECK(pFirst->close() == Acad::eOk);
    const int misuses = Database::misuses();
    CHECK(pFirst->close() == Acad::eNotOpenForRead);
    REQUIRE(database->eraseLast() == Acad::eOk);
    CHECK(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead) == Acad::eWasErased);

    // One is left open.
    AcDbBlockTable* pTable = nullptr;
    REQUIRE(database->getSymbolTable(pTable, AcDb::kForRead) == Acad::eOk);
    database.reset();
    CHECK(Database::misuses() == misuses + 2);
}
