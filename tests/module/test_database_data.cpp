// What is read from a drawing in one go: external references, properties, keywords;
// and that a host which fails in the midst of it leaves no trace.
#include "ModuleFixture.h"
#include "dxf/Memory.h"
#include "host/drawing/Faults.h"
#include "host/observation/ResourceCount.h"
#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/text/StringView.h"
#include "library/titleblock/ARXTitleBlock.h"
#include "objectarx/dbapserv.h"
#include "reactors/DatabaseData.h"
#include "tests/support/Answers.h"
#include "tests/support/DrawingText.h"
#include <doctest/doctest.h>

#include <climits>
#include <stdexcept>

using host::Faults;

namespace {

struct DrawingHost : ModuleFixture {
    AcDbDatabase* open(const std::string& name, const DrawingText& drawing)
    {
        app.documents().open(folder.write(name, drawing.str()));
        app.pumpUntilIdle();
        return app.documents().active()->database();
    }
    void settings(const std::string& label, const std::string& group)
    {
        folder.write("ProjectSettings.txt",
                     "PROJECTLABEL\r\n{\r\n" + label + "\r\n}\r\nTITLEBLOCKS\r\n{\r\n" + group + "\r\n}\r\n");
    }
    std::vector<std::string> xrefs(AcDbDatabase* pDatabase)
    {
        std::vector<std::string> paths;
        CDatabaseData data(pDatabase);
        for (const CString& path : data.xrefPaths())
            paths.push_back(Tesk::toString(path));
        return paths;
    }
};

constexpr int kLoaded = DrawingText::Xref | DrawingText::Resolved;

// Everything that is read, and some of it twice.
DrawingText everything()
{
    return DrawingText()
        .variable("TITLE", "Plan")
        .custom("a", "1")
        .custom("b", "2")
        .block("DOOR")
        .insert("DOOR")
        .xref("Grid", "grid.dwg")
        .insert("Grid")
        .xref("Plot", "grid.dwg")
        .insert("Plot")
        .border("SHEET", {{"NR", "1"}, {"REV", "b"}});
}

}  // namespace

TEST_CASE_FIXTURE(DrawingHost, "attached and loaded references are listed in the block table's order")
{
    folder.writeDrawing("zeta.dwg");
    folder.writeDrawing("Alpha.dwg");
    const auto path = [this](const char* name) { return folder.path() + name; };
    AcDbDatabase* pDatabase = open("host.dwg", DrawingText()
                                                   .block("PLAIN")
                                                   .insert("PLAIN")
                                                   .xref("Zeta", "zeta.dwg")
                                                   .insert("Zeta")
                                                   .xref("Alpha", path("Alpha.dwg"))
                                                   .insert("Alpha")
                                                   .xref("Again", ".\\zeta.dwg")
                                                   .insert("Again")
                                                   .insert("Again")
                                                   .xref("Unused", "Alpha.dwg")
                                                   .xref("Missing", "missing.dwg")
                                                   .insert("Missing")
                                                   .xref("*X7", "Alpha.dwg", kLoaded | DrawingText::Anonymous)
                                                   .insert("*X7")
                                                   .xref("*Paper_Space", "Alpha.dwg")
                                                   .insert("*Paper_Space"));
    CHECK(xrefs(pDatabase) == std::vector{path("zeta.dwg"), path("Alpha.dwg"), path("zeta.dwg")});

    // A record that does not open, or whose file the host does not name, is passed over.
    for (const auto& [call, nth] :
         {std::pair("AcDbBlockTableIterator::getRecord", 2), {"acdbOriginalXrefFullPathFor", 1}}) {
        Faults::failNth(call, nth);
        CHECK(xrefs(pDatabase) == std::vector{path("Alpha.dwg"), path("zeta.dwg")});
        Faults::clear();
    }
}

TEST_CASE_FIXTURE(DrawingHost, "an object without a drawing")
{
    CDatabaseData data;
    CHECK(data.database() == nullptr);
    CHECK(data.document() == nullptr);
    CHECK(data.xrefPaths().empty());
    CHECK_FALSE(data.drawingProperties().isValid());
    CHECK_FALSE(data.keywordExpansion().hasTitleInstance());
    CHECK(data.keywordExpansion().expandString("%PATH%%DRAWING_INDEX%%NEWLINE%") == "%PATH%%DRAWING_INDEX%\n");
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    CHECK(data.getXrefPaths().empty());
    CHECK(answers.assertions() == "DatabaseData: m_pDatabase != NULL\n");
}

TEST_CASE_FIXTURE(DrawingHost, "that keywords need the drawing to be the working one is reported")
{
    settings("Job", "BORDER \"A1\" \"SHEET\"\r\nNO NR");
    AcDbDatabase* pDatabase = open("a.dwg", DrawingText().border("SHEET", {{"NR", "1"}}));
    open("b.dwg", DrawingText());
    const Answers answers;
    Tesk::setDiagnosticsLevel(1);
    const Tesk::CARXKeywordExpansion stranger(pDatabase, (folder.path() + "a.dwg").c_str(), 1, 1);
    Tesk::setDiagnosticsLevel(0);
    CHECK(answers.assertions().starts_with(
        "ARXKeywordExpansion: m_pDatabase == acdbHostApplicationServices()->workingDatabase()\n"));
    CHECK(stranger.hasTitleInstance());
}

namespace {

// What a fault does, in turn: the call fails, or throws one of these.
void (*const kFaults[])() = {
    nullptr,
    [] { throw new CFileException(CFileException::fileNotFound, 2, "fault"); },
    [] { throw std::runtime_error("fault"); },
    [] { throw 5; },
};

// Everything of the host that the reading of a drawing could leave behind.
struct Held {
    explicit Held(AcDbDatabase* pDatabase)
        : working(acdbHostApplicationServices()->workingDatabase()),
          objects(host::Database::of(pDatabase)->openObjects()),
          strings(host::liveAllocations()),
          misuses(host::Database::misuses()),
          heap(host::observation::ResourceCount::heapBlocks())
    {
    }
    bool operator==(const Held&) const = default;

    AcDbDatabase* working;
    int objects;
    long strings;
    int misuses;
    long heap;
};

}  // namespace

TEST_CASE_FIXTURE(DrawingHost, "each call of the host fails in turn, and nothing of it stays")
{
    settings("Job", "BORDER \"A1\" \"SHEET\"\r\nNO NR\r\nREV REV");
    folder.writeDrawing("grid.dwg");
    AcDbDatabase* pDatabase = open("a.dwg", everything());
    open("other.dwg", DrawingText());
    const auto build = [&] {
        try {
            CDatabaseData data(pDatabase);
            return true;
        } catch (CException* pException) {
            pException->Delete();
        } catch (...) {
        }
        return false;
    };
    REQUIRE(build());
    // What the runtime keeps from its first exceptions.
    for (void (*pThrow)() : kFaults)
        Tesk::guarded("test", [&] { pThrow != nullptr ? pThrow() : void(); });
    REQUIRE(acdbHostApplicationServices()->workingDatabase() != pDatabase);

    Faults::throwNth("*", INT_MAX, nullptr);  // which keeps its preparations
    Faults::clear();
    for (void (*pThrow)() : kFaults) {
        CAPTURE(pThrow != nullptr);
        int calls = 0;
        int ended = 0;
        int lost = 0;
        for (bool fired = true; fired; ++calls) {
            CAPTURE(calls);
            const Held before(pDatabase);
            Faults::throwNth("*", calls + 1, pThrow);
            const bool built = build();
            fired = Faults::fired();
            Faults::clear();
            ended += !built;
            const Held after(pDatabase);
            // Who is not told which drawing is the working one can put none back.
            lost += after.working != before.working;
            acdbHostApplicationServices()->setWorkingDatabase(before.working);
            CHECK(after.objects == 0);
            CHECK(after.strings == before.strings);
            CHECK(after.misuses == before.misuses);
            CHECK(after.heap == before.heap);
        }
        MESSAGE("of ", calls, " calls the failure of ", ended, " ended the reading");
        CHECK(calls > 120);
        CHECK(lost <= 1);
        CHECK((pThrow == nullptr) == (ended < 10));
    }
}
