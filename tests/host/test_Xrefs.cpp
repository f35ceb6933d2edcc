#include "tests/host/DrawingFixture.h"

#include <doctest/doctest.h>

using host::Database;

namespace {

struct Xref {
    AcDb::XrefStatus status = AcDb::kXrfNotAnXref;
    AcDbDatabase* database = nullptr;
    std::string path;
};

Xref xrefOf(Database& database, const char* sName)
{
    Xref xref;
    AcDbBlockTableRecord* pRecord = openBlock(database, sName);
    REQUIRE(pRecord != nullptr);
    xref.status = pRecord->xrefStatus();
    xref.database = pRecord->xrefDatabase();
    if (const char* sPath = acdbOriginalXrefFullPathFor(xref.database))
        xref.path = sPath;
    pRecord->close();
    return xref;
}

}  // namespace

TEST_CASE("an xref's status and database follow what its path leads to")
{
    const CTestFolder folder;
    folder.write("good.dwg", DrawingText().str());
    folder.write("bad.dwg", "no drawing\n");
    folder.write("nested.dwg", DrawingText().xref("inner", "good.dwg").insert("inner").str());
    const std::string sHost = folder.path("host.dwg");
    DrawingText text;
    text.block("plain");
    const struct {
        const char* name;
        std::string path;
        AcDb::XrefStatus status;
        std::string attachedAs;
    } rows[] = {
        {"relative", ".\\good.dwg", AcDb::kXrfResolved, folder.path("good.dwg")},
        {"slashes", "./good.dwg", AcDb::kXrfResolved, folder.path("good.dwg")},
        {"absolute", folder.path("good.dwg"), AcDb::kXrfResolved, folder.path("good.dwg")},
        {"parent", "nested.dwg", AcDb::kXrfResolved, folder.path("nested.dwg")},
        {"missing", "missing.dwg", AcDb::kXrfFileNotFound, ""},
        {"pathless", "", AcDb::kXrfFileNotFound, ""},
        {"broken", "bad.dwg", AcDb::kXrfUnresolved, ""},
        {"itself", "host.dwg", AcDb::kXrfUnresolved, ""},
        {"unloaded", "good.dwg", AcDb::kXrfUnloaded, ""},
        {"unused", "good.dwg", AcDb::kXrfUnreferenced, folder.path("good.dwg")},
    };
    for (const auto& row : rows) {
        if (row.status == AcDb::kXrfUnloaded)
            text.blocks("|0=BLOCK|8=0|2=unloaded|70=36|1=" + row.path + "|71=1|0=ENDBLK|8=0");
        else
            text.xref(row.name, row.path);
        if (row.status != AcDb::kXrfUnreferenced)
            text.insert(row.name);
    }
    folder.write("host.dwg", text.str());
    std::unique_ptr<Database> database = Database::open(sHost);
    CHECK(xrefOf(*database, "plain").status == AcDb::kXrfNotAnXref);
    for (const auto& row : rows) {
        CAPTURE(row.name);
        const Xref xref = xrefOf(*database, row.name);
        CHECK(xref.status == row.status);
        CHECK((xref.database != nullptr) == !row.attachedAs.empty());
        CHECK(xref.path == row.attachedAs);
    }
    // One level deep: what an xref refers to is not loaded.
    const Xref inner = xrefOf(*Database::of(xrefOf(*database, "parent").database), "inner");
    CHECK(inner.status == AcDb::kXrfUnresolved);
    CHECK(inner.database == nullptr);
    CHECK(acdbOriginalXrefFullPathFor(database.get()) == nullptr);
    // A file that goes away later changes nothing.
    DeleteFileA(folder.path("good.dwg").c_str());
    CHECK(xrefOf(*database, "relative").path == folder.path("good.dwg"));
}

TEST_CASE("an xref is attached, kept in the file, and detached, each one undo step")
{
    const CTestFolder folder;
    folder.write("grid.dwg", DrawingText().str());
    folder.write("bad.dwg", "no drawing\n");
    std::unique_ptr<Database> database = Database::createNew();
    database->save(folder.path("host.dwg"));
    const std::string sBytes = database->file().bytes();
    CHECK(database->attachXref("bad.dwg") == Acad::eFilerError);
    REQUIRE(database->attachXref("grid.dwg") == Acad::eOk);
    CHECK(database->attachXref("grid.dwg") == Acad::eDuplicateKey);
    CHECK(xrefOf(*database, "GRID").status == AcDb::kXrfResolved);
    database->save(folder.path("host.dwg"));
    std::unique_ptr<Database> again = Database::open(folder.path("host.dwg"));
    CHECK(xrefOf(*again, "grid").path == folder.path("grid.dwg"));
    CHECK(xrefOf(*again, "grid").status == AcDb::kXrfResolved);

    REQUIRE(again->detachXref("Grid") == Acad::eOk);
    CHECK(openBlock(*again, "grid") == nullptr);
    CHECK(again->file().bytes().find("grid") == std::string::npos);
    REQUIRE(again->undo());
    CHECK(xrefOf(*again, "grid").status == AcDb::kXrfResolved);
    REQUIRE(database->undo());
    CHECK(openBlock(*database, "grid") == nullptr);
    CHECK((database->file().bytes() == sBytes));
}
