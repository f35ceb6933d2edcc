// The data of the open drawings: read when a drawing is opened, imported or saved, kept
// meanwhile.
#include "ModuleFixture.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Prerelease.h"
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
    std::string expand(AcApDocument* pDocument, const char* text)
    {
        return Tesk::toString(data(pDocument).keywordExpansion().expandString(text));
    }
    static host::Database& drawing(AcApDocument* pDocument) { return *host::Database::of(pDocument->database()); }

    // What the module says meanwhile.
    template <class Action>
    std::string traced(Action action)
    {
        Tesk::setDiagnosticsLevel(2);
        app.commandLine().history().clear();
        action();
        Tesk::setDiagnosticsLevel(0);
        return app.commandLine().history();
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

TEST_CASE_FIXTURE(EditorFixture, "a drawing is read when it is opened, and not again until it is saved")
{
    folder.write("MDITabs.ini", "ModifiedText = *\r\n");
    load();
    AcApDocument* pDocument = nullptr;
    CHECK(readsOf([&] { pDocument = open("a.dwg", DrawingText().variable("TITLE", "First")); }) == 1);
    CHECK(readsOf([&] { CHECK(title(pDocument) == "First"); }) == 0);
    CHECK(data(pDocument).document() == pDocument);
    CHECK(data(pDocument).database() == pDocument->database());

    REQUIRE(drawing(pDocument).setSummaryField("title", "Second") == Acad::eOk);
    CHECK(title(pDocument) == "First");
    CHECK(tabs() == std::vector<std::string>{"a*"});
    CHECK(readsOf([&] { CHECK(run("QSAVE")); }) == 1);
    CHECK(title(pDocument) == "Second");
    CHECK(tabs() == std::vector<std::string>{"a"});

    // A save under a new name is seen by the keywords and the tab.
    REQUIRE(drawing(pDocument).setSummaryField("title", "Third") == Acad::eOk);
    CHECK(run("SAVEAS \"" + folder.path() + "b.dwg\""));
    CHECK(expand(pDocument, "%FILENAME%") == "b");
    CHECK(title(pDocument) == "Third");
    CHECK(tabs() == std::vector<std::string>{"b"});

    // An import reads the new contents.
    folder.write("import.dxf", DrawingText().variable("TITLE", "Imported").str());
    CHECK(readsOf([&] { CHECK(run("DXFIN \"" + folder.path() + "import.dxf\"")); }) == 1);
    CHECK(title(pDocument) == "Imported");
    CHECK(tabs() == std::vector<std::string>{"b*"});
}

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

TEST_CASE_FIXTURE(EditorFixture, "what happens to a drawing is traced, and a tab's text is made once")
{
    load();
    const std::string path = folder.path() + "a.dwg", other = folder.path() + "b.dwg";
    const auto count = [](const std::string& text, const std::string& what) {
        int found = 0;
        for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
            ++found;
        return found;
    };
    const std::string opened = traced([&] { open("a.dwg", DrawingText()); });
    CHECK(count(opened, "CEditorReactor::dwgFileOpened(\"" + path + "\")\n") == 1);
    CHECK(count(opened, "CARXMDITabs::buildTabText(") == 1);
    CHECK(count(opened, "CARXMDITabs::updateTabText(") == 0);
    folder.write("import.dxf", DrawingText().str());
    const auto imported = traced([&] { run("DXFIN \"" + folder.path() + "import.dxf\""); });
    CHECK(count(imported, "CEditorReactor::dxfInComplete()\n") == 1);
    CHECK(count(traced([&] { run("SAVEAS \"" + other + "\""); }),
                "CEditorReactor::saveComplete(\"" + other + "\")\n") == 1);
    const std::string failed = traced([&] {
        host::Faults::throwNth("acdbGetSummaryInfo", 1, [] { throw 1; });
        run("QSAVE");
        host::Faults::clear();
    });
    CHECK(count(failed, "Unhandled exception in CDatabaseData construction ...\n") == 1);
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
