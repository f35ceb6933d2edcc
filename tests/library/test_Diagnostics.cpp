#include "library/diagnostics/Guard.h"
#include "library/maintenance/AssertionReport.h"
#include "tests/library/LibraryFixture.h"
#include "tests/support/ThreadCodePage.h"

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

TEST_CASE_FIXTURE(CLibraryFixture, "what ends in a guard is named and deleted")
{
    struct CCounted : CException {
        explicit CCounted(int& iLive) : m_iLive(++iLive) {}
        ~CCounted() override { --m_iLive; }
        int& m_iLive;
    };
    int iLive = 0;
    CHECK_FALSE(Tesk::guarded("C::call", [&] { throw new CCounted(iLive); }));
    startAt(2);
    CHECK_FALSE(Tesk::guarded("C::call", [] { throw std::runtime_error("why"); }));
    CHECK(joined().ends_with("C::call ended by an exception: why\n"));
    Tesk::neverRaise([&] { throw new CCounted(iLive); });
    CHECK(iLive == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "a new log starts with its header, once")
{
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    const std::string sKey = "SOFTWARE\\Microsoft\\Windows";
    const char* const aValues[][3] = {{" NT\\CurrentVersion", "ProductName", "W"},
                                      {" NT\\CurrentVersion", "CurrentBuildNumber", "9"},
                                      {" NT\\CurrentVersion", "SystemRoot", "C:\\w"},
                                      {"\\CurrentVersion\\Explorer\\Shell Folders", "Common Desktop", "C:\\d"},
                                      {"\\CurrentVersion", "CommonFilesDir", "C:\\c"}};
    for (const auto& [sBelow, sName, sValue] : aValues)
        Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, (sKey + sBelow).c_str(), sName, sValue);
    const char sSystem[] = "HARDWARE\\DESCRIPTION\\System";
    const char sProcessor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
    const Tesk::Registry::CKey system(HKEY_LOCAL_MACHINE, sSystem, true);
    ::RegSetValueExA(system.get(), "SystemBiosVersion", 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>("A\0B\0"), 5);
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "~MHz", DWORD{2000});
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "VendorIdentifier", "V");
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "Identifier", "I");
    startAt(2);
    TESK_TRACE("first %d\n\n", 1);
    TESK_TRACE("second\n");
    // Dates, times and paths are this run's.
    std::string sLog = std::regex_replace(log(), std::regex("(started: |Name=|LOCATION_[A-Z_]*=).{2,}"), "$1*");
    sLog = std::regex_replace(sLog, std::regex("\\[[0-9:]+|\r"), "");
    CHECK(sLog == "Diagnostics started: *\n::HostName=*\nOS::ProductName=W\nOS::CurrentBuildNumber=9\n"
                  "Folders::Common Desktop=C:\\d\nFolders::SystemRoot=C:\\w\nFolders::CommonFilesDir=C:\\c\n"
                  "Hardware::SystemBiosVersion (0)=A\nHardware::SystemBiosVersion (1)=B\n"
                  "Hardware::id= 2000 MHz, V, I\nPathLocation::LOCATION_FILE_MODULE=*\n"
                  "PathLocation::LOCATION_DIR_PROGRAM=*\nPathLocation::LOCATION_DIR_USERZAVIKDATA=*\n"
                  ":-------------------------\n:\nModule::FileVersion=\nModule::Comments=\n"
                  "] Test : first 1\n] Test : second\n");
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

    // Without a stream a console of our own comes and goes; the host's output stays open.
    ::FreeConsole();
    const HANDLE hOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
    ::SetStdHandle(STD_OUTPUT_HANDLE, hFile);
    ::SetStdHandle(STD_ERROR_HANDLE, nullptr);
    start();
    Tesk::setDiagnosticsLevel(2);
    Tesk::writeDiagnostic("in a window");
    CHECK(::GetConsoleWindow());
    Tesk::terminateLibrary();
    CHECK_FALSE(::GetConsoleWindow());
    CHECK(::GetStdHandle(STD_OUTPUT_HANDLE) == hFile);
    ::SetStdHandle(STD_OUTPUT_HANDLE, hOutput);
    ::SetStdHandle(STD_ERROR_HANDLE, hBefore);
    CHECK(::CloseHandle(hFile));
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
    CHECK(sLog.size() - sLog.find("aaa") == 100 * 42);
    CHECK(count(sLog, "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\r\n") == 100);
}
