// Documents: what is told of one that does not open or is not saved, activation, and input that nobody is left for.

#include "host/application/Application.h"
#include "host/ui/MainFrame.h"
#include "tests/support/TestFolder.h"

#include <doctest/doctest.h>

#include <string>

namespace {

// A running host, with a folder for its files.
struct HostFixture : CTestFolder {
    bool run(const std::string& sLine) { return application.execute(sLine).succeeded; }
    // The command has to fail, saying this.
    void refused(const std::string& sLine, const std::string& sReason)
    {
        CAPTURE(sLine);
        const host::Result result = application.execute(sLine);
        CHECK_FALSE(result.succeeded);
        CHECK_MESSAGE(result.output.find(sReason) != std::string::npos, result.output);
    }
    host::DocumentManager& documents() { return application.documents(); }

    host::Application application{host::Options{false, false}};
};

using Events = std::vector<std::string>;

std::string nameOf(const AcApDocument* pDocument)
{
    const std::string sName = pDocument->fileName();
    return sName.substr(sName.rfind('\\') + 1);
}

// What the host tells, besides what a session's transcript shows.
class Recorder : public HostFixture, public AcApDocManagerReactor, public AcEditorReactor {
public:
    Recorder()
    {
        acDocManager->addReactor(this);
        acedEditor->addReactor(this);
    }
    ~Recorder()
    {
        acDocManager->removeReactor(this);
        acedEditor->removeReactor(this);
    }
    Events take() { return std::exchange(events, {}); }

    void documentCreated(AcApDocument* p) override { events.push_back("created " + nameOf(p)); }
    void documentCreateCanceled(AcApDocument* p) override { events.push_back("createCanceled " + nameOf(p)); }
    void documentActivated(AcApDocument* p) override { events.push_back("activated " + nameOf(p)); }
    void dwgFileOpened(AcDbDatabase*, char*) override { events.push_back("dwgFileOpened"); }
    void saveComplete(AcDbDatabase*, const char*) override { events.push_back("saveComplete"); }
    void abortSave(AcDbDatabase*) override { events.push_back("abortSave"); }
    void beginDxfIn(AcDbDatabase*) override { events.push_back("beginDxfIn"); }
    void abortDxfIn(AcDbDatabase*) override { events.push_back("abortDxfIn"); }
    void dxfInComplete(AcDbDatabase*) override { events.push_back("dxfInComplete"); }

private:
    Events events;
};

// While it lives, no block of 16 MB is to be had: in the 32-bit program, which ships.
class NoLargeBlocks {
public:
    NoLargeBlocks()
    {
        for (SIZE_T size = 1 << 30; size >= 16 << 20; size /= 2)
            while (void* const pBlock = ::VirtualAlloc(nullptr, size, MEM_RESERVE, PAGE_NOACCESS))
                m_blocks.push_back(pBlock);
    }
    ~NoLargeBlocks()
    {
        for (void* const pBlock : m_blocks)
            ::VirtualFree(pBlock, 0, MEM_RELEASE);
    }

private:
    std::vector<void*> m_blocks;
};

}  // namespace

TEST_CASE_FIXTURE(Recorder, "what fails is not told as done")
{
    REQUIRE(run("OPEN " + writeDrawing("a.dwg")));
    REQUIRE(run("LINE 0 0 2 2"));
    take();
    refused("SAVEAS " + path("missing\\c.dwg"), "c.dwg");
    CHECK(take() == Events{"abortSave"});
    CHECK(documents().at(0).isModified());
    CHECK(documents().at(0).fileName() == path("a.dwg"));

    const std::string sBroken = write("broken.dxf", "0\nSECTION\nwhat\n");
    refused("DXFIN " + sBroken, "broken.dxf");
    CHECK(take() == Events{"beginDxfIn", "abortDxfIn"});
    CHECK(acDocManager->appContextOpenDocument(sBroken.c_str()) == Acad::eFilerError);
    CHECK(acDocManager->appContextOpenDocument(path("missing.dwg").c_str()) == Acad::eFileNotFound);
    CHECK(take() == Events{"createCanceled broken.dxf", "createCanceled missing.dwg"});
    if constexpr (sizeof(void*) == 4) {
        const std::string sLarge = write("large.dwg", std::string(20 << 20, '\n'));
        const NoLargeBlocks none;
        CHECK(acDocManager->appContextOpenDocument(sLarge.c_str()) == Acad::eFilerError);
        refused("DXFIN " + sLarge, "not enough memory");
        CHECK(documents().count() == 1);
        const std::string sReferring = write("plan.dwg", DrawingText().xref("large", sLarge).str());
        CHECK(acDocManager->appContextOpenDocument(sReferring.c_str()) == Acad::eOk);  // without the reference
        CHECK(take() == Events{"createCanceled large.dwg", "beginDxfIn", "abortDxfIn", "created plan.dwg",
                               "dwgFileOpened", "activated plan.dwg"});
    }
    REQUIRE(run("OPEN " + writeDrawing("c.dxf")));  // imported, whatever the command
    CHECK(take() == Events{"created c.dxf", "beginDxfIn", "dxfInComplete", "activated c.dxf"});
}

TEST_CASE_FIXTURE(HostFixture, "a path that is longer than programs can open does not open under a shorter name")
{
    char before[MAX_PATH] = "";
    ::GetCurrentDirectoryA(sizeof before, before);
    const std::string sFolder = path(std::string(200 - path("").size(), 'f'));
    const std::string sName = std::string(60, 'n') + ".dwg";
    REQUIRE(::CreateDirectoryA(sFolder.c_str(), nullptr));
    REQUIRE(::MoveFileA(writeDrawing("a.dwg").c_str(), ("\\\\?\\" + sFolder + "\\" + sName).c_str()));
    REQUIRE(::SetCurrentDirectoryA(sFolder.c_str()));
    refused("OPEN " + sName, "too long");
    REQUIRE(run("NEW"));
    refused("SAVEAS x" + sName, "too long");
    ::SetCurrentDirectoryA(before);
    ::DeleteFileA(("\\\\?\\" + sFolder + "\\" + sName).c_str());
}

TEST_CASE_FIXTURE(Recorder, "no way leads to another drawing while activation is disabled")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("NEW"));
    const std::string sPath = writeDrawing("a.dwg");
    REQUIRE(run("LOCKDOCS 1"));
    take();
    CHECK(acDocManager->activateDocument(&documents().at(0)) == Acad::eDocumentSwitchDisabled);
    refused("SWITCH 0", "disabled");
    refused("NEW", "disabled");
    refused("OPEN " + sPath, "disabled");
    // A person's way: Ctrl+F6.
    const HWND client = application.frame().m_hWndMDIClient;
    const HWND active = reinterpret_cast<HWND>(::SendMessageA(client, WM_MDIGETACTIVE, 0, 0));
    ::SendMessageA(client, WM_MDINEXT, 0, 0);
    CHECK(reinterpret_cast<HWND>(::SendMessageA(client, WM_MDIGETACTIVE, 0, 0)) == active);
    CHECK(take() == Events{});
    REQUIRE(run("LOCKDOCS 0"));
    ::SendMessageA(client, WM_MDINEXT, 0, 0);
    CHECK(take() == Events{"activated Drawing1.dwg"});
}

TEST_CASE_FIXTURE(HostFixture, "queued input for a document that closes is dropped")
{
    REQUIRE(run("NEW"));
    REQUIRE(run("NEW"));
    AcApDocument* const pFirst = &documents().at(0);
    AcApDocument* const pSecond = &documents().at(1);
    CHECK(acDocManager->sendStringToExecute(pFirst, "_.CLOSE\nNEW\n", false) == Acad::eOk);
    application.execute(std::vector<std::string>{});  // scripted, so that nobody is asked
    CHECK(documents().count() == 1);
    CHECK(acDocManager->sendStringToExecute(pFirst, "NEW\n") == Acad::eNoDocument);
    CHECK(acDocManager->mdiActiveDocument() == pSecond);
}
