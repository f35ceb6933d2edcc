#include "library/diagnostics/AssertionReport.h"
#include "tests/library/LibraryFixture.h"
#include "tests/library/ThreadCodePage.h"

#include <doctest/doctest.h>

#include <regex>

namespace {

bool matches(const std::string& sText, const char* sPattern) { return std::regex_match(sText, std::regex(sPattern)); }

std::size_t count(const std::string& sText, const std::string& sWhat)
{
    std::size_t n = 0;
    for (std::size_t at = 0; (at = sText.find(sWhat, at)) != std::string::npos; at += sWhat.size())
        ++n;
    return n;
}

std::string joined()
{
    std::string sAll;
    for (const std::string& sPiece : commandLinePieces())
        sAll += sPiece;
    return sAll;
}

DWORD WINAPI writeLines(void*)
{
    for (int i = 0; i < 25; ++i)
        Tesk::CDiagnosticsLog::get().append("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n");
    return 0;
}

}  // namespace

TEST_CASE_FIXTURE(CLibraryFixture, "the level by the user's startup values")
{
    const struct {
        int m_iDebug;  // -1: no value
        int m_iAssert;
        int m_iLevel;
        bool m_bOldLogKept;
    } cases[] = {
        {-1, -1, 0, true}, {0, 0, 0, true}, {1, 0, 2, false}, {0, 1, 1, true}, {1, 1, 1, false},
    };
    for (const auto& each : cases) {
        CAPTURE(each.m_iDebug);
        CAPTURE(each.m_iAssert);
        const CTestHive hive;
        Tesk::setDiagnosticsLevel(0);
        if (each.m_iDebug >= 0)
            setStartup("DebugStartup", each.m_iDebug != 0);
        if (each.m_iAssert >= 0)
            setStartup("AssertStartup", each.m_iAssert != 0);
        folder().folder("Zavik Diagnostics\\");
        std::ofstream(logFile().GetString()) << "old";
        start();
        CHECK(Tesk::getDiagnosticsLevel() == each.m_iLevel);
        CHECK(Tesk::isTraceEnabled() == (each.m_iLevel == 2));
        CHECK(Tesk::isAssertionEnabled() == (each.m_iLevel >= 1));
        CHECK((log() == "old") == each.m_bOldLogKept);
        Tesk::terminateLibrary();
    }
}

TEST_CASE_FIXTURE(CLibraryFixture, "at level 1 a trace does not look at its arguments; other numbers are no level")
{
    startAt(1);
    Tesk::setDiagnosticsLevel(3);
    Tesk::setDiagnosticsLevel(-1);
    CHECK(Tesk::getDiagnosticsLevel() == 1);
    int iLooked = 0;
    TESK_TRACE("%d\n", ++iLooked);
    CHECK(iLooked == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "a new log starts with its header, once")
{
    startAt(2);
    TESK_TRACE("first %d\n\n", 1);
    TESK_TRACE("second\n");
    const std::string sLog = log();
    CAPTURE(sLog);
    CHECK(count(sLog, "\r\nOS::ProductName=") == 1);
    CHECK(count(sLog, "\r\nFolders::SystemRoot=") == 1);
    CHECK(count(sLog, "\r\nPathLocation::LOCATION_DIR_USERZAVIKDATA=") == 1);
    const std::size_t end = sLog.find("\r\n:-------------------------\r\n:\r\n");
    REQUIRE(end != std::string::npos);
    CHECK(matches(sLog.substr(end + 33), "\\[\\d\\d:\\d\\d:\\d\\d\\] Test : first 1\r\n"
                                         "\\[\\d\\d:\\d\\d:\\d\\d\\] Test : second\r\n"));
    CHECK(::DeleteFileA(logFile()));
    TESK_TRACE("third\n");
    CHECK(count(log(), "Diagnostics started") == 1);
}

TEST_CASE_FIXTURE(CLibraryFixture, "the command line gets pieces of at most 132 characters")
{
    startAt(2);
    for (const std::size_t length : {0u, 113u, 114u, 5000u}) {
        CAPTURE(length);
        commandLinePieces().clear();
        TESK_TRACE("%s\n\n", std::string(length, 'x').c_str());
        const std::size_t whole = 18 + length + 1;  // "[hh:mm:ss] Test : " and the line feed
        CHECK(joined().size() == whole);
        CHECK(commandLinePieces().size() == (whole + 131) / 132);
        for (const std::string& sPiece : commandLinePieces())
            CHECK(sPiece.size() <= 132);
    }
    // A log that cannot be written disturbs nobody.
    ::DeleteFileA(logFile());
    ::CreateDirectoryA(logFile(), nullptr);
    commandLinePieces().clear();
    TESK_TRACE("message\n");
    CHECK(joined().ends_with("Test : message\n"));
    const CThreadLocale japanese(CThreadLocale::japanese);
    commandLinePieces().clear();
    std::string sText = "x";
    for (int i = 0; i < 100; ++i)
        sText += "\x83\x5C";
    TESK_TRACE("%s", sText.c_str());
    CHECK(commandLinePieces()[0].size() == 131);
    CHECK(joined().size() == 18 + sText.size() + 1);
}

TEST_CASE_FIXTURE(CLibraryFixture, "reports go to the console stream and the log, traces to the log alone")
{
    startAt(2);
    const CString sConsole = folder().path("console.txt").c_str();
    const HANDLE hBefore = ::GetStdHandle(STD_ERROR_HANDLE);
    const HANDLE hFile = ::CreateFileA(sConsole, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr);
    ::SetStdHandle(STD_ERROR_HANDLE, hFile);
    Tesk::writeDiagnostic("report\n");
    TESK_TRACE("trace\n");
    Tesk::setDiagnosticsLevel(1);
    Tesk::writeDiagnostic("not at this level");
    Tesk::terminateLibrary();  // lets go of the stream
    ::SetStdHandle(STD_ERROR_HANDLE, hBefore);
    ::CloseHandle(hFile);
    CHECK(matches(CTestFolder::read(sConsole), "\\[\\d\\d:\\d\\d:\\d\\d\\] report\r\n"));
    CHECK(count(log(), "] report\r\n") == 1);
    CHECK(count(log(), "not at this level") == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "lines of several threads do not mix, the header is written once")
{
    startAt(2);
    HANDLE threads[4];
    for (HANDLE& hThread : threads)
        hThread = ::CreateThread(nullptr, 0, writeLines, nullptr, 0, nullptr);
    ::WaitForMultipleObjects(4, threads, TRUE, INFINITE);
    for (const HANDLE hThread : threads)
        ::CloseHandle(hThread);
    CHECK(count(log(), "Diagnostics started") == 1);
    const std::string sLog = log();
    CHECK(sLog.size() - sLog.find("\r\n:\r\n") == 5 + 100 * 42);
    CHECK(count(sLog, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\r\n") == 100);
}
