// The command line: names, quoting, scripts, and the stack of registered commands.

#include "HostFixture.h"

#include "objectarx/acutads.h"

namespace {

int calls = 0;

void count() { ++calls; }

void countTen() { calls += 10; }

}  // namespace

TEST_CASE_FIXTURE(HostFixture, "a command is found by local name, and by global name after an underscore")
{
    calls = 0;
    REQUIRE(acedRegCmds->addCommand("ONE", "GlobalName", "LocalName", ACRX_CMD_MODAL, count) == Acad::eOk);
    for (const char* sTyped :
         {"LocalName", "LOCALNAME", ".localname", "_GlobalName", "_.globalname", "._GLOBALNAME", "'_GlobalName"}) {
        CAPTURE(sTyped);
        const int before = calls;
        CHECK(run(sTyped));
        CHECK(calls == before + 1);
    }
    refused("GlobalName", "Unknown command");
    refused("_LocalName", "Unknown command");

    CHECK(acedRegCmds->addCommand("ONE", "globalname", "Other", ACRX_CMD_MODAL, count) == Acad::eDuplicateKey);
    CHECK(acedRegCmds->addCommand("one", "Other", "LOCALNAME", ACRX_CMD_MODAL, count) == Acad::eDuplicateKey);
    calls = 0;
    CHECK(acedRegCmds->addCommand("TWO", "GlobalName", "LocalName", ACRX_CMD_MODAL, countTen) == Acad::eOk);
    CHECK(run("LocalName"));  // the group that came last
    CHECK(calls == 10);
    CHECK(acedRegCmds->removeGroup("two") == Acad::eOk);
    CHECK(acedRegCmds->removeGroup("TWO") == Acad::eKeyNotFound);
    CHECK(run("LocalName"));
    CHECK(calls == 11);
}

TEST_CASE_FIXTURE(HostFixture, "what cannot be typed cannot be registered")
{
    const auto add = [](const char* sGroup, const char* sName, AcRxFunctionPtr function) {
        return acedRegCmds->addCommand(sGroup, sName, sName, ACRX_CMD_MODAL, function);
    };
    CHECK(add("G", std::string(64, 'x').c_str(), count) == Acad::eOk);
    CHECK(add("G", std::string(65, 'x').c_str(), count) == Acad::eInvalidInput);
    CHECK(add("G", "two words", count) == Acad::eInvalidInput);
    CHECK(add("G", "", count) == Acad::eInvalidInput);
    CHECK(add("", "Name", count) == Acad::eInvalidInput);
    CHECK(add("G", "Name", nullptr) == Acad::eInvalidInput);
    CHECK(add("G", nullptr, count) == Acad::eInvalidInput);
}

TEST_CASE_FIXTURE(HostFixture, "arguments keep blanks in quotes")
{
    REQUIRE(run("NEW"));
    const std::string sPath = path("two words.dwg");
    REQUIRE(run("_.saveas \"" + sPath + "\""));
    CHECK(acDocManager->curDocument()->fileName() == sPath);
    REQUIRE(run("CLOSE"));
    REQUIRE(run("open " + sPath));  // a path alone needs no quotes
    CHECK(acDocManager->curDocument()->fileName() == sPath);
    refused("LINE 0 0 1", "Too few arguments");
    refused("LINE 0 0 1 x", "\"x\" is not a number");
    refused("SWITCH 1", "no drawing 1");
    refused("SWITCH -1", "no drawing -1");
}

TEST_CASE_FIXTURE(HostFixture, "commands without a drawing or a sense say so")
{
    for (const char* sLine : {"LINE 0 0 1 1", "UNDO", "CLOSE", "QSAVE", "SAVEAS x.dwg", "BENCH 3"})
        refused(sLine, "There is no drawing");
    refused("FOO bar", "Unknown command \"FOO\"");
    REQUIRE(run("NEW"));
    refused("QSAVE", "has no file yet");
    refused("ERASE L", "nothing to erase");
    refused("INSERT nothing 0 0", "\"nothing\"");
    refused("XDETACH nothing", "\"nothing\"");
    refused("XATTACH " + path("missing.dwg"), "missing.dwg");
    refused("OPEN", "needs a path");
    CHECK(documents().count() == 1);
    CHECK_FALSE(documents().at(0).isModified());
}

TEST_CASE_FIXTURE(HostFixture, "a script goes on after an error, names its line, and fails as a whole")
{
    const std::string sScript = write("test.scr", "; a remark\r\nNEW\r\n\r\nFOO\r\nLINE 0 0 1 1\r\n");
    CHECK_FALSE(application.executeFile(sScript));
    CHECK(application.commandLine().history().find("Script test.scr, line 4 failed: FOO\n") != std::string::npos);
    CHECK(documents().at(0).isModified());

    CHECK(application.executeFile(write("good.scr", "LINE 0 0 1 1\nCLOSE")));
    CHECK(application.commandLine().history().find("The changes to \"Drawing1.dwg\" are discarded.") !=
          std::string::npos);
    CHECK_FALSE(application.executeFile(path("missing.scr")));
    CHECK_FALSE(application.isScripted());

    // What a line queues counts for the script too.
    REQUIRE(run("NEW"));
    acDocManager->sendStringToExecute(acDocManager->curDocument(), "FOO\n");
    CHECK(application.execute(std::vector<std::string>{}).output.find("Unknown command") != std::string::npos);
    const host::Result quit = application.execute(std::vector<std::string>{"QUIT", "NEW"});
    CHECK(quit.succeeded);
    CHECK(application.isQuitting());
    CHECK(documents().count() == 0);
}

TEST_CASE_FIXTURE(HostFixture, "a typed line runs when the host is idle, also without a drawing")
{
    const HWND pane = ::GetDlgItem(application.frame().m_hWnd, 0xE801);
    REQUIRE(pane != nullptr);
    const HWND input = ::GetDlgItem(pane, 2);
    const auto type = [&](const char* sLine) {
        ::SetWindowTextA(input, sLine);
        ::PostMessageA(input, WM_KEYDOWN, VK_RETURN, 1);
    };
    type("new");
    CHECK(documents().count() == 0);
    application.pumpUntilIdle();
    CHECK(documents().count() == 1);
    type("line 0 0 1 1");
    application.pumpUntilIdle();
    CHECK(documents().at(0).isModified());
    CHECK(::GetWindowTextLengthA(input) == 0);

    // The menu and its keys type for the person.
    application.frame().SendMessage(WM_COMMAND, 100);
    application.pumpUntilIdle();
    CHECK(documents().count() == 2);
    // What is typed over the drawing arrives in the line.
    const HWND view =
        reinterpret_cast<HWND>(::SendMessageA(application.frame().m_hWndMDIClient, WM_MDIGETACTIVE, 0, 0));
    ::PostMessageA(view, WM_CHAR, 'l', 1);
    application.pumpUntilIdle();
    CHECK(::GetWindowTextLengthA(input) == 1);
}

TEST_CASE_FIXTURE(HostFixture, "a print is cut at 132 characters and keeps the ANSI code page")
{
    application.commandLine().history().clear();
    CHECK(acutPrintf("%s", std::string(200, 'x').c_str()) == 5100);
    CHECK(application.commandLine().history() == std::string(132, 'x'));
    acutPrintf("\n%d %s", 5, "Gr\xFC\xDF");
    CHECK(application.commandLine().history().substr(132) == "\n5 Gr\xFC\xDF");
    // A message starts a line of its own.
    refused("FOO", "\nCommand: FOO\nUnknown command");
}
