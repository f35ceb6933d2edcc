// The data of the open drawings: of which they are kept, and until when. When they are read
// is in tests/transcripts.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "library/text/StringView.h"
#include "reactors/EditorReactor.h"
#include "tests/support/DrawingText.h"
#include <doctest/doctest.h>

#include <climits>

namespace {

struct EditorFixture : ModuleFixture {
    AcApDocument* open(const std::string& name, const DrawingText& drawing)
    {
        app.documents().open(folder.write(name, drawing.str()));
        app.pumpUntilIdle();
        return app.documents().active();
    }
    CDatabaseData& data(AcApDocument* pDocument) { return CEditorReactor::getReactor()->getDatabaseData(pDocument); }
    std::string title(AcApDocument* pDocument)
    {
        return Tesk::toString(data(pDocument).drawingProperties().getTitle());
    }
    // How many drawings the action makes the module read.
    template <class Action>
    static int readsOf(Action action)
    {
        host::Faults::failNth("acdbGetSummaryInfo", INT_MAX);
        action();
        host::Faults::clear();
        return host::Faults::count();
    }
};

}  // namespace

TEST_CASE_FIXTURE(EditorFixture, "only drawings of documents are kept, and only while they live")
{
    load();
    AcApDocument* pDocument = open("a.dwg", DrawingText().variable("TITLE", "A"));
    CEditorReactor* pReactor = CEditorReactor::getReactor();
    const auto stranger = host::Database::createNew();
    char name[] = "stranger.dwg";
    CHECK(readsOf([&] {
              pReactor->dwgFileOpened(stranger.get(), name);
              pReactor->dxfInComplete(stranger.get());
              pReactor->saveComplete(stranger.get(), name);
              pReactor->databaseToBeDestroyed(stranger.get());
          }) == 0);
    CHECK(readsOf([&] { CHECK(title(pDocument) == "A"); }) == 0);

    pReactor->databaseToBeDestroyed(pDocument->database());
    CHECK(readsOf([&] { CHECK(title(pDocument) == "A"); }) == 1);
    CHECK(readsOf([&] { CHECK(title(pDocument) == "A"); }) == 0);

    // A drawing closed and opened again is read again, whatever address it gets.
    close(pDocument);
    folder.write("a.dwg", DrawingText().variable("TITLE", "B").str());
    CHECK(readsOf([&] { CHECK(run("OPEN \"" + folder.path() + "a.dwg\"")); }) == 1);
    CHECK(title(app.documents().active()) == "B");
}

TEST_CASE_FIXTURE(EditorFixture, "drawings that are open already are read when the module is loaded")
{
    AcApDocument* pFirst = open("a.dwg", DrawingText().variable("TITLE", "A"));
    open("b.dwg", DrawingText());
    host::Faults::throwNth("acdbGetSummaryInfo", 1, [] { throw 1; });
    CHECK(load() == "");
    host::Faults::clear();
    // One that could not be read then is read when it is asked for.
    CHECK(tabs() == std::vector<std::string>{"a", "b"});
    CHECK(readsOf([&] { CHECK(title(pFirst) == "A"); }) == 1);
    CHECK(readsOf([&] { unload(); }) == 0);
    CHECK(app.editor().reactorCount() == 0);
}
