// Documents: the order of what is notified, activation, and queued input.

#include "HostFixture.h"

#include "objectarx/dbapserv.h"

namespace {

using Events = std::vector<std::string>;

std::string nameOf(const AcApDocument* pDocument)
{
    const std::string sName = pDocument->fileName();
    return sName.substr(sName.rfind('\\') + 1);
}

class DocumentRecorder : public AcApDocManagerReactor {
public:
    explicit DocumentRecorder(Events& target) : events(target) {}

    void documentCreateStarted(AcApDocument* p) override { note("createStarted", p); }
    void documentCreated(AcApDocument* p) override { note("created", p); }
    void documentCreateCanceled(AcApDocument* p) override { note("createCanceled", p); }
    void documentToBeDestroyed(AcApDocument* p) override
    {
        note("toBeDestroyed", p);
        CHECK(acDocManager->document(p->database()) == p);
    }
    void documentDestroyed(const char* sName) override
    {
        const std::string sPath = sName;
        events.push_back("destroyed " + sPath.substr(sPath.rfind('\\') + 1));
    }
    void documentToBeActivated(AcApDocument* p) override { note("toBeActivated", p); }
    void documentToBeDeactivated(AcApDocument* p) override { note("toBeDeactivated", p); }
    void documentBecameCurrent(AcApDocument* p) override
    {
        note("becameCurrent", p);
        CHECK(acDocManager->curDocument() == p);
        CHECK(acdbHostApplicationServices()->workingDatabase() == p->database());
    }
    void documentActivated(AcApDocument* p) override
    {
        note("activated", p);
        CHECK(acDocManager->mdiActiveDocument() == p);
    }
    void documentActivationModified(bool enabled) override
    {
        events.push_back(enabled ? "activationOn" : "activationOff");
    }

    Events& events;

private:
    void note(const char* sEvent, const AcApDocument* p) { events.push_back(sEvent + (" " + nameOf(p))); }
};

class EditorRecorder : public AcEditorReactor {
public:
    explicit EditorRecorder(Events& target) : events(target) {}

    void dwgFileOpened(AcDbDatabase* pDatabase, char*) override
    {
        events.push_back("dwgFileOpened " + nameOf(acDocManager->document(pDatabase)));
    }
    void databaseToBeDestroyed(AcDbDatabase*) override { events.push_back("databaseToBeDestroyed"); }
    void beginSave(AcDbDatabase*, const char*) override { events.push_back("beginSave"); }
    void saveComplete(AcDbDatabase* pDatabase, const char* sName) override
    {
        const std::string sPath = sName;
        events.push_back("saveComplete " + sPath.substr(sPath.rfind('\\') + 1) + " of " +
                         nameOf(acDocManager->document(pDatabase)));
    }
    void abortSave(AcDbDatabase*) override { events.push_back("abortSave"); }
    void beginDxfIn(AcDbDatabase*) override { events.push_back("beginDxfIn"); }
    void abortDxfIn(AcDbDatabase*) override { events.push_back("abortDxfIn"); }
    void dxfInComplete(AcDbDatabase*) override { events.push_back("dxfInComplete"); }

    Events& events;
};

// A host whose notifications are recorded.
class RecordedHost : public HostFixture {
public:
    RecordedHost() : documentRecorder(events), editorRecorder(events)
    {
        acDocManager->addReactor(&documentRecorder);
        acedEditor->addReactor(&editorRecorder);
    }
    ~RecordedHost()
    {
        acDocManager->removeReactor(&documentRecorder);
        acedEditor->removeReactor(&editorRecorder);
    }
    Events take() { return std::exchange(events, {}); }

    Events events;
    DocumentRecorder documentRecorder;
    EditorRecorder editorRecorder;
};

std::string context;  // the document in which the test's command last ran

void noteContext()
{
    context = nameOf(acDocManager->curDocument()) + " in " + nameOf(acDocManager->mdiActiveDocument());
}

}  // namespace

TEST_CASE_FIXTURE(RecordedHost, "documents come, change and go in the documented order")
{
    CHECK(acDocManager->curDocument() == nullptr);
    REQUIRE(run("NEW"));
    CHECK(take() == Events{"createStarted Drawing1.dwg", "created Drawing1.dwg", "toBeActivated Drawing1.dwg",
                           "becameCurrent Drawing1.dwg", "activated Drawing1.dwg"});

    const std::string sPath = drawing("a.dwg");
    take();
    REQUIRE(run("OPEN " + sPath));
    CHECK(take() == Events{"createStarted a.dwg", "created a.dwg", "dwgFileOpened a.dwg",
                           "toBeDeactivated Drawing1.dwg", "toBeActivated a.dwg", "becameCurrent a.dwg",
                           "activated a.dwg"});
    CHECK(run("OPEN " + sPath));  // open already: nothing changes
    CHECK(take() == Events{});

    REQUIRE(run("SWITCH 0"));
    CHECK(take() == Events{"toBeDeactivated a.dwg", "toBeActivated Drawing1.dwg", "becameCurrent Drawing1.dwg",
                           "activated Drawing1.dwg"});
    REQUIRE(run("SWITCH 1"));
    take();
    REQUIRE(run("CLOSE"));
    CHECK(take() == Events{"toBeDeactivated a.dwg", "toBeDestroyed a.dwg", "databaseToBeDestroyed", "destroyed a.dwg",
                           "toBeActivated Drawing1.dwg", "becameCurrent Drawing1.dwg", "activated Drawing1.dwg"});
    REQUIRE(run("CLOSE"));
    CHECK(acDocManager->mdiActiveDocument() == nullptr);
    CHECK(acDocManager->curDocument() == nullptr);
    CHECK(acdbHostApplicationServices()->workingDatabase() == nullptr);
}

TEST_CASE_FIXTURE(RecordedHost, "saving and importing are announced, also when they fail")
{
    REQUIRE(run("OPEN " + drawing("a.dwg")));
    take();
    REQUIRE(run("LINE 0 0 1 1"));
    CHECK(documents().at(0).isModified());
    REQUIRE(run("SAVEAS " + path("b.dwg")));
    CHECK(take() == Events{"beginSave", "saveComplete b.dwg of b.dwg"});
    CHECK_FALSE(documents().at(0).isModified());
    CHECK(documents().at(0).fileName() == path("b.dwg"));

    REQUIRE(run("LINE 0 0 2 2"));
    refused("SAVEAS " + path("missing\\c.dwg"), "c.dwg");
    CHECK(take() == Events{"beginSave", "abortSave"});
    CHECK(documents().at(0).isModified());
    CHECK(documents().at(0).fileName() == path("b.dwg"));

    const std::string sOther = drawing("c.dxf");
    take();
    REQUIRE(run("DXFIN " + sOther));
    CHECK(take() == Events{"beginDxfIn", "dxfInComplete"});
    refused("DXFIN " + write("broken.dxf", "0\nSECTION\nwhat\n"), "broken.dxf");
    CHECK(take() == Events{"beginDxfIn", "abortDxfIn"});
    REQUIRE(run("OPEN " + sOther));
    const Events opened = take();
    CHECK(Events(opened.begin() + 1, opened.begin() + 4) == Events{"created c.dxf", "beginDxfIn", "dxfInComplete"});

    // A copy says nothing of the drawing itself.
    REQUIRE(run("SWITCH 0"));
    take();
    REQUIRE(run("SAVECOPY " + path("copy.sv$")));
    CHECK(take() == Events{"beginSave", "saveComplete copy.sv$ of b.dwg"});
    CHECK(documents().at(0).isModified());
}

TEST_CASE_FIXTURE(RecordedHost, "a drawing that does not open changes nothing but a message")
{
    REQUIRE(run("NEW"));
    take();
    refused("OPEN " + path("missing.dwg"), "missing.dwg");
    CHECK(take().back() == "createCanceled missing.dwg");
    refused("OPEN " + write("broken.dwg", "0\nSECTION\nwhat\n"), "broken.dwg");
    CHECK(documents().count() == 1);
    CHECK(acDocManager->mdiActiveDocument() == &documents().at(0));

    CHECK(acDocManager->appContextOpenDocument(path("missing.dwg").c_str()) == Acad::eFileNotFound);
    CHECK(acDocManager->appContextOpenDocument(path("broken.dwg").c_str()) == Acad::eFilerError);
    CHECK(acDocManager->appContextOpenDocument("") == Acad::eInvalidInput);
    CHECK(application.commandLine().history().find("missing.dwg") != std::string::npos);
    CHECK(documents().count() == 1);
    CHECK(acDocManager->appContextOpenDocument(drawing("a.dwg").c_str()) == Acad::eOk);
    CHECK(nameOf(acDocManager->mdiActiveDocument()) == "a.dwg");
}

TEST_CASE_FIXTURE(RecordedHost, "no way leads to another drawing while activation is disabled")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("NEW"));
    const std::string sPath = drawing("a.dwg");
    take();
    REQUIRE(run("LOCKDOCS 1"));
    CHECK(take() == Events{"activationOff"});
    CHECK_FALSE(acDocManager->isDocumentActivationEnabled());

    CHECK(acDocManager->activateDocument(&documents().at(0)) == Acad::eDocumentSwitchDisabled);
    refused("SWITCH 0", "disabled");
    refused("NEW", "disabled");
    refused("OPEN " + sPath, "disabled");
    // A person's ways: the window list and Ctrl+F6.
    const HWND client = application.frame().m_hWndMDIClient;
    const HWND active = reinterpret_cast<HWND>(::SendMessageA(client, WM_MDIGETACTIVE, 0, 0));
    ::SendMessageA(client, WM_MDINEXT, 0, 0);
    CHECK(reinterpret_cast<HWND>(::SendMessageA(client, WM_MDIGETACTIVE, 0, 0)) == active);
    CHECK(take() == Events{});
    CHECK(acDocManager->mdiActiveDocument() == &documents().at(1));

    REQUIRE(run("LOCKDOCS 0"));
    CHECK(take() == Events{"activationOn"});
    ::SendMessageA(client, WM_MDINEXT, 0, 0);
    CHECK(acDocManager->mdiActiveDocument() == &documents().at(0));
    CHECK(take().back() == "activated Drawing1.dwg");
}

TEST_CASE_FIXTURE(HostFixture, "queued input waits for idle and runs in its own document")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("NEW"));
    AcApDocument* const pFirst = &documents().at(0);
    AcApDocument* const pSecond = &documents().at(1);
    REQUIRE(acedRegCmds->addCommand("TEST", "NoteContext", "NoteContext", ACRX_CMD_MODAL, noteContext) == Acad::eOk);

    CHECK(acDocManager->sendStringToExecute(pFirst, "_.NOTECONTEXT\n", false, true) == Acad::eOk);
    CHECK(context == "");
    application.pumpUntilIdle();
    CHECK(context == "Drawing1.dwg in Drawing2.dwg");
    CHECK(acDocManager->curDocument() == pSecond);
    CHECK(acDocManager->mdiActiveDocument() == pSecond);

    SUBCASE("activated on request")
    {
        acDocManager->sendStringToExecute(pFirst, "NoteContext\n", true);
        application.pumpUntilIdle();
        CHECK(context == "Drawing1.dwg in Drawing1.dwg");
        CHECK(acDocManager->mdiActiveDocument() == pFirst);
    }
    SUBCASE("a line in pieces runs when it is complete, lines in their order")
    {
        acDocManager->sendStringToExecute(pFirst, "LINE 0 0 ", false);
        application.pumpUntilIdle();
        CHECK_FALSE(documents().at(0).isModified());
        acDocManager->sendStringToExecute(pFirst, "1 1\nUNDO\nLINE 0 0 2 2\n", false);
        application.pumpUntilIdle();
        CHECK(documents().at(0).isModified());
        CHECK_FALSE(documents().at(1).isModified());
    }
    SUBCASE("input for a closed document is dropped")
    {
        acDocManager->sendStringToExecute(pFirst, "_.CLOSE\nNoteContext\n", false);
        context.clear();
        application.execute(std::vector<std::string>{});  // scripted, so that nobody is asked
        CHECK(documents().count() == 1);
        CHECK(context == "");
        CHECK(acDocManager->sendStringToExecute(pFirst, "NoteContext\n") == Acad::eNoDocument);
        CHECK(acDocManager->mdiActiveDocument() == pSecond);
    }
    SUBCASE("echo on request alone")
    {
        application.commandLine().history().clear();
        acDocManager->sendStringToExecute(pFirst, "NoteContext\n", false, false, false);
        application.pumpUntilIdle();
        CHECK(application.commandLine().history().find("NoteContext") == std::string::npos);
        acDocManager->sendStringToExecute(pFirst, "NoteContext\n", false, false, true);
        application.pumpUntilIdle();
        CHECK(application.commandLine().history().find("Command: NoteContext\n") != std::string::npos);
    }
    context.clear();
}
