#include "host/drawing/Database.h"
#include "objectarx/dbents.h"
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
    CHECK_FALSE(database->graph().block("border")->isReferenced());
    CHECK(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead) == Acad::eWasErased);
    REQUIRE(acdbOpenAcDbObject(pFirst, id, AcDb::kForRead, true) == Acad::eOk);
    pFirst->close();

    // The table was left open.
    database.reset();
    CHECK(Database::misuses() == misuses + 3);
}
