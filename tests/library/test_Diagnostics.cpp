#include "library/diagnostics/Guard.h"
#include "library/diagnostics/LibraryState.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/expansion/DatePass.h"
#include "library/maintenance/AssertionReport.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/maintenance/Maintenance.h"
#include "library/maintenance/MiniDumper.h"
#include "library/registry/Registry.h"
#include "tests/library/Environment.h"
#include "tests/support/Answers.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace {

// A place of its own for what the diagnostics touch: registry, temporary folder
// and level. The library itself is started and stopped by the tests.
struct CLibraryFixture {
    CLibraryFixture() { Tesk::setDiagnosticsLevel(0); }
    ~CLibraryFixture()
    {
        Tesk::setDiagnosticsLevel(0);
        if (Tesk::G_bLibraryInitialised)
            Tesk::terminateLibrary();
    }

    // Starts the library as the entry point does, for this program.
    void start() const { Tesk::initialiseLibrary("Test", ::GetModuleHandleA(nullptr), false); }

    void startTracing() const
    {
        start();
        Tesk::CDiagnosticsLog::get().startAfresh();
        Tesk::setDiagnosticsLevel(2);
    }

    static void setStartup(const char* sName, bool bOn)
    {
        REQUIRE(Tesk::Registry::SetValue(HKEY_CURRENT_USER, "Software\\Zavik\\Halvoran", sName, bOn));
    }

    CString logFile() const { return folder.path("Zavik Diagnostics\\test_library.log").c_str(); }
    std::string log() const { return CTestFolder::read(logFile()); }

    const CTestFolder folder;
    const CEnvironment temp{"TEMP", folder.path().c_str()};
    const CTestHive hive;
};

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
        const CTestHive empty;
        Tesk::setDiagnosticsLevel(0);
        flagsMask() = each.m_dwFlag;
        if (each.m_iDebug >= 0)
            setStartup("DebugStartup", each.m_iDebug != 0);
        if (each.m_iAssert >= 0)
            setStartup("AssertStartup", each.m_iAssert != 0);
        folder.folder("Zavik Diagnostics\\");
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

TEST_CASE_FIXTURE(CLibraryFixture, "what fails while a box is up is reported in the log alone")
{
    startTracing();
    {
        const Answers answers({}, [] { TESK_ASSERT_TEXT(false, "inner"); });
        TESK_ASSERT_TEXT(false, "outer");
        CHECK(answers.boxes().size() == 1);
    }
    CHECK(log().find("(inner).") < log().find("(outer)."));
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
    startTracing();
    CHECK_FALSE(Tesk::guarded("C::call", [] { throw std::runtime_error("why"); }));
    CHECK(log().ends_with("C::call ended by an exception: why\r\n"));
    Tesk::neverRaise([&] { throw new CCounted(iLive); });
    CHECK(iLive == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "a new log tells what the registry says of the BIOS and the processor")
{
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    const char sProcessor[] = "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0";
    const Tesk::Registry::CKey system(HKEY_LOCAL_MACHINE, "HARDWARE\\DESCRIPTION\\System", true);
    ::RegSetValueExA(system.get(), "SystemBiosVersion", 0, REG_MULTI_SZ, reinterpret_cast<const BYTE*>("A\0B\0"), 5);
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "~MHz", DWORD{2000});
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "VendorIdentifier", "V");
    Tesk::Registry::SetValue(HKEY_LOCAL_MACHINE, sProcessor, "Identifier", "I");
    startTracing();
    TESK_TRACE("first\n\n");
    CHECK(log().find("\r\nHardware::SystemBiosVersion (0)=A\r\nHardware::SystemBiosVersion (1)=B\r\n"
                     "Hardware::id= 2000 MHz, V, I\r\nPathLocation") != std::string::npos);
    CHECK(log().ends_with("] Test : first\r\n"));
    CHECK(Tesk::CDiagnosticsLog::now("%H") == Tesk::formatTime(::_time64(nullptr), "%H", false).c_str());
}

TEST_CASE_FIXTURE(CLibraryFixture, "without a stream a console comes and goes, and the host's output stays open")
{
    startTracing();
    const CString sConsole = folder.path("console.txt").c_str();
    const HANDLE hBefore = ::GetStdHandle(STD_ERROR_HANDLE);
    const HANDLE hFile = ::CreateFileA(sConsole, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr);
    ::SetStdHandle(STD_ERROR_HANDLE, hFile);
    Tesk::writeDiagnostic("report\n");
    Tesk::terminateLibrary();  // lets go of the stream

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
    CHECK(CTestFolder::read(sConsole).ends_with("] report\r\n"));
    // A log that cannot be written disturbs nobody.
    ::DeleteFileA(logFile());
    ::CreateDirectoryA(logFile(), nullptr);
    start();
    Tesk::setDiagnosticsLevel(2);
    TESK_TRACE("message\n");
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
    for (const char* sOlder : {" a.dmp", " b.dmp", " c.dmp", " d.dmp", " e.dmp", " f.dmp", "-other.dmp"}) {
        std::ofstream(logFile().Left(logFile().ReverseFind('.')) + sOlder);
        ::Sleep(10);
    }
    CHECK(pDuring(nullptr) == hostsFilter(nullptr));
    std::string sLeft;
    for (const auto& each : std::filesystem::directory_iterator(folder.path("Zavik Diagnostics"))) {
        const std::string sBytes = CTestFolder::read(each.path().string());
        sLeft += sBytes.empty() ? each.path().stem().string().substr(12) : sBytes.substr(0, 4);
    }
    std::sort(sLeft.begin(), sLeft.end());
    CHECK(sLeft == "    -DMMPcdeefhort");
    Tesk::terminateLibrary();
    CHECK_FALSE(Tesk::G_pMiniDumper);
    CHECK((::SetUnhandledExceptionFilter(pReal) == hostsFilter));
}
