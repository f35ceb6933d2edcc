#include "library/diagnostics/Guard.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/files/FileSearch.h"
#include "library/maintenance/AssertionReport.h"
#include "library/maintenance/MiniDumper.h"
#include "library/system/Handles.h"
#include "tests/library/LibraryFixture.h"
#include "tests/support/Answers.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <fstream>
#include <regex>

namespace {

std::size_t count(const std::string& sText, const std::string& sWhat)
{
    std::size_t n = 0;
    for (std::size_t at = 0; (at = sText.find(sWhat, at)) != std::string::npos; at += sWhat.size())
        ++n;
    return n;
}

DWORD WINAPI writeLines(void*)
{
    for (int i = 0; i < 25; ++i)
        Tesk::CDiagnosticsLog::get().append("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\n");
    return 0;
}

// What follows the stem in the names of the dumps there; of a real one its magic.
std::vector<std::string> dumps(const std::string& sStem)
{
    std::vector<std::string> vecDumps;
    WIN32_FIND_DATAA found;
    const std::string sFolder = sStem.substr(0, sStem.rfind('\\') + 1);
    const UniqueFind search(::FindFirstFileA((sStem + " *.dmp").c_str(), &found));
    for (bool bMore = static_cast<bool>(search); bMore; bMore = ::FindNextFileA(search.get(), &found) != FALSE) {
        const std::string sBytes = CTestFolder::read(sFolder + found.cFileName);
        vecDumps.push_back(sBytes.empty() ? (sFolder + found.cFileName).substr(sStem.size()) : sBytes.substr(0, 4));
    }
    std::sort(vecDumps.begin(), vecDumps.end());
    return vecDumps;
}

LONG WINAPI hostsFilter(EXCEPTION_POINTERS*) { return 7; }

bool g_bInterrupted = false;

BOOL WINAPI hostsInterrupt(DWORD)
{
    g_bInterrupted = true;
    return TRUE;
}

// The flags mask of this program's version resource, whose flags say pre-release.
DWORD& flagsMask()
{
    const HRSRC hResource = ::FindResourceA(nullptr, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(16));
    auto* const pBytes = static_cast<char*>(::LockResource(::LoadResource(nullptr, hResource)));
    DWORD dwProtection;
    ::VirtualProtect(pBytes, 100, PAGE_READWRITE, &dwProtection);
    return reinterpret_cast<VS_FIXEDFILEINFO*>(pBytes + 40)->dwFileFlagsMask;
}

}  // namespace

TEST_CASE_FIXTURE(CLibraryFixture, "the level by the user's startup values and the module's pre-release flag")
{
    const struct {
        int m_iDebug;  // -1: no value
        int m_iAssert;
        DWORD m_dwFlag;  // in the flags mask
        int m_iLevel;
        bool m_bOldLogKept;
    } cases[] = {
        {-1, -1, 0, 0, true}, {0, 0, 0, 0, true},  {1, 0, 0, 2, false},
        {0, 1, 0, 1, true},   {1, 1, 0, 1, false}, {0, 0, VS_FF_PRERELEASE, 2, false},
    };
    for (const auto& each : cases) {
        CAPTURE(each.m_iDebug);
        CAPTURE(each.m_iAssert);
        const CTestHive hive;
        Tesk::setDiagnosticsLevel(0);
        flagsMask() = each.m_dwFlag;
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
    flagsMask() = 0;
}

TEST_CASE_FIXTURE(CLibraryFixture, "at level 1 boxes are shown and nothing is written; at level 0 neither")
{
    startAt(1);
    Tesk::setDiagnosticsLevel(3);
    Tesk::setDiagnosticsLevel(-1);
    int iCalls = 0;
    const Answers answers;
    TESK_ASSERT(iCalls == 0);
    TESK_VERIFY(++iCalls == 0);
    const std::string sLine = "Line : " + std::to_string(__LINE__ - 1) + "\n\n" + moduleName().GetString() + " + 0x";
    TESK_TRACE("%d\n", ++iCalls);
    Tesk::setDiagnosticsLevel(0);
    TESK_VERIFY(++iCalls == 0);
    TESK_ASSERT(++iCalls == 0);
    CHECK(iCalls == 2);
    REQUIRE(answers.boxes().size() == 1);
    CHECK(answers.boxes()[0].text.find(sLine) != std::string::npos);
    CHECK(log().empty());
}

// Inside one box, as a box each takes its time.
TEST_CASE_FIXTURE(CLibraryFixture,
                  "a start too many and a stop too many are reported; while a box is up, in the log alone")
{
    startAt(2);
    {
        const Answers answers({}, [] {
            Tesk::initialiseLibrary("", ::GetModuleHandleA(nullptr), false);
            Tesk::terminateLibrary();
            Tesk::getCurrentModule();
            Tesk::getApplicationVersionLabel();
            Tesk::terminateLibrary();
        });
        TESK_ASSERT_TEXT(false, "outer");
        CHECK(answers.boxes().size() == 1);
    }
    std::string sAll;
    const std::string sLog = log();
    const std::regex report("Assertion in \"[^\"]*\" \\((.*)\\)\\.");
    for (std::sregex_iterator each(sLog.begin(), sLog.end(), report), end; each != end; ++each)
        sAll += (*each)[1].str() + "; ";
    CHECK(sAll == "!G_bLibraryInitialised; !CString(sApplicationName).IsEmpty(); G_pApplicationID == NULL; "
                  "!G_sApplicationName.IsEmpty(); G_bLibraryInitialised; G_bLibraryInitialised; "
                  "G_pApplicationID != NULL; G_hCurrentModule != NULL; G_bLibraryInitialised; "
                  "!G_sApplicationName.IsEmpty(); G_pApplicationID != NULL; outer; ");
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
    CHECK(log().ends_with("C::call ended by an exception: why\r\n"));
    Tesk::neverRaise([&] { throw new CCounted(iLive); });
    CHECK(iLive == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "a new log tells what the registry says of the machine")
{
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    const char sProcessor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
    const Tesk::Registry::CKey system(HKEY_LOCAL_MACHINE, "HARDWARE\\DESCRIPTION\\System", true);
    ::RegSetValueExA(system.get(), "SystemBiosVersion", 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>("A\0B\0"), 5);
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "~MHz", DWORD{2000});
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "VendorIdentifier", "V");
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "Identifier", "I");
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion", "CommonFilesDir",
                             "C:\\c");
    startAt(2);
    TESK_TRACE("first %d\n\n", 1);
    const std::string sLog = log();
    CHECK(sLog.find("\r\nFolders::CommonFilesDir=C:\\c\r\nHardware::SystemBiosVersion (0)=A\r\n"
                    "Hardware::SystemBiosVersion (1)=B\r\nHardware::id= 2000 MHz, V, I\r\nPathLocation") !=
          std::string::npos);
    CHECK(sLog.find("OS::") == std::string::npos);
    CHECK(sLog.ends_with("] Test : first 1\r\n"));
    CHECK(::DeleteFileA(logFile()));
    TESK_TRACE("second\n");
    CHECK(count(log(), "Diagnostics started") == 1);
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
    ::SetConsoleCtrlHandler(nullptr, FALSE);  // not to be ignored
    ::SetConsoleCtrlHandler(hostsInterrupt, TRUE);
    const HANDLE hOutput = ::GetStdHandle(STD_OUTPUT_HANDLE);
    ::SetStdHandle(STD_OUTPUT_HANDLE, hFile);
    ::SetStdHandle(STD_ERROR_HANDLE, nullptr);
    start();
    Tesk::setDiagnosticsLevel(2);
    Tesk::writeDiagnostic("in a window");
    CHECK(::GetConsoleWindow());
    CHECK(::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0));  // ends nothing
    ::Sleep(200);
    CHECK_FALSE(g_bInterrupted);
    Tesk::terminateLibrary();
    CHECK_FALSE(::GetConsoleWindow());
    CHECK(::GetStdHandle(STD_OUTPUT_HANDLE) == hFile);
    ::SetStdHandle(STD_OUTPUT_HANDLE, hOutput);
    ::SetStdHandle(STD_ERROR_HANDLE, hBefore);
    CHECK(::CloseHandle(hFile));
    CHECK(std::regex_match(CTestFolder::read(sConsole), std::regex("\\[[\\d:]{8}\\] report\r\n")));
    CHECK(count(log(), "] report\r\n") == 1);
    CHECK(count(log(), "not at this level") == 0);
    // A log that cannot be written disturbs nobody.
    ::DeleteFileA(logFile());
    ::CreateDirectoryA(logFile(), nullptr);
    start();
    Tesk::setDiagnosticsLevel(2);
    TESK_TRACE("message\n");
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

TEST_CASE_FIXTURE(CLibraryFixture, "the installation is named by the description beside the module")
{
    char sPath[MAX_PATH];
    ::GetModuleFileNameA(nullptr, sPath, MAX_PATH);
    const CString sFile = CString(sPath).Left(CString(sPath).ReverseFind('.')) + ".avf";
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"ProductName=Halvoran Desk", ""},
        {"; comment\r\n productname = Halvoran Desk \r\nother\r\nPRODUCTVERSION=4.1", "Halvoran Desk 4.1"}};
    for (const auto& [sBytes, sLabel] : cases) {
        if (*sBytes)
            std::ofstream(sFile.GetString(), std::ios::binary) << sBytes;
        start();
        ::DeleteFileA(sFile);
        CHECK(Tesk::getApplicationVersionLabel() == sLabel);
        CHECK(Tesk::Registry::GetRemoteConfigurableKey() ==
              CString("Software\\Zavik\\") + (*sBytes ? "Halvoran Desk" : "Test") + "\\Remote Configurable");
        CHECK_FALSE(Tesk::G_pMiniDumper);  // not asked for
        Tesk::terminateLibrary();
    }
    CHECK(Tesk::CVersionBlock::getCompanyName().IsEmpty());
}

TEST_CASE_FIXTURE(CLibraryFixture, "the crash dump is written beside the log, where five stay, and the filter put back")
{
    const LPTOP_LEVEL_EXCEPTION_FILTER pReal = ::SetUnhandledExceptionFilter(hostsFilter);
    Tesk::initialiseLibrary("Test", ::GetModuleHandleA(nullptr), true);
    REQUIRE(Tesk::G_pMiniDumper);
    const LPTOP_LEVEL_EXCEPTION_FILTER pDuring = ::SetUnhandledExceptionFilter(nullptr);
    ::SetUnhandledExceptionFilter(pDuring);
    const std::string sStem = std::string(logFile(), static_cast<std::size_t>(logFile().ReverseFind('.')));
    for (const char* sOlder : {" a.dmp", " b.dmp", " c.dmp", " d.dmp", " e.dmp", " f.dmp", "-other.dmp"}) {
        std::ofstream(sStem + sOlder);
        ::Sleep(10);
    }
    CHECK(pDuring(nullptr) == hostsFilter(nullptr));
    CHECK(dumps(sStem) == std::vector<std::string>{" c.dmp", " d.dmp", " e.dmp", " f.dmp", "MDMP"});
    CHECK(Tesk::fileExists((sStem + "-other.dmp").c_str()));
    Tesk::terminateLibrary();
    CHECK_FALSE(Tesk::G_pMiniDumper);
    CHECK((::SetUnhandledExceptionFilter(pReal) == hostsFilter));
}
