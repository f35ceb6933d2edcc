#include "tests/library/LibraryFixture.h"

#include "library/diagnostics/VersionBlock.h"
#include "library/files/FileSearch.h"
#include "library/maintenance/ApplicationID.h"
#include "library/maintenance/MiniDumper.h"
#include "library/system/Handles.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>
#include <fstream>

namespace {

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

// This program's version resource in memory, writable while the object lives;
// as it was afterwards.
class CPatchedVersion {
public:
    CPatchedVersion()
    {
        const HMODULE hModule = ::GetModuleHandleA(nullptr);
        const HRSRC hResource = ::FindResourceA(hModule, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(16));
        m_pBytes = static_cast<char*>(::LockResource(::LoadResource(hModule, hResource)));
        m_sBefore.assign(m_pBytes, ::SizeofResource(hModule, hResource));
        DWORD dwProtection;
        ::VirtualProtect(m_pBytes, m_sBefore.size(), PAGE_READWRITE, &dwProtection);
    }
    ~CPatchedVersion() { std::memcpy(m_pBytes, m_sBefore.data(), m_sBefore.size()); }
    CPatchedVersion(const CPatchedVersion&) = delete;
    CPatchedVersion& operator=(const CPatchedVersion&) = delete;

    char* bytes() { return m_pBytes; }

    VS_FIXEDFILEINFO& fixed()
    {
        const DWORD dwSignature = 0xFEEF04BD;
        const std::string sSignature(reinterpret_cast<const char*>(&dwSignature), 4);
        return *reinterpret_cast<VS_FIXEDFILEINFO*>(m_pBytes + m_sBefore.find(sSignature));
    }

private:
    char* m_pBytes;
    std::string m_sBefore;
};

}  // namespace

TEST_CASE_FIXTURE(CLibraryFixture, "the version block's texts come with start-up and go with shutdown")
{
    start();
    CHECK_FALSE(Tesk::G_pMiniDumper);  // not asked for
    CHECK(Tesk::CVersionBlock::getCompanyName() == "Zavik");
    CHECK(Tesk::CVersionBlock::getProductName() == "Halvoran");
    CHECK(Tesk::CVersionBlock::getInternalName() == "ZavikMDITabs");
    CHECK_FALSE(Tesk::CVersionBlock::isPrerelease());
    Tesk::terminateLibrary();
    CHECK(Tesk::CVersionBlock::getCompanyName().IsEmpty());

    CPatchedVersion version;
    std::memset(version.bytes(), 0, 60);
    start();
    CHECK_FALSE(Tesk::CVersionBlock::initialise());
    CHECK(Tesk::CVersionBlock::getCompanyName().IsEmpty());
}

TEST_CASE_FIXTURE(CLibraryFixture, "a pre-release build starts at level 2, if its flags mask lets the flag count")
{
    CPatchedVersion version;
    version.fixed().dwFileFlags |= VS_FF_PRERELEASE;
    start();
    CHECK(Tesk::getDiagnosticsLevel() == 2);
    Tesk::terminateLibrary();

    Tesk::setDiagnosticsLevel(0);
    setStartup("AssertStartup", true);
    start();
    CHECK(Tesk::getDiagnosticsLevel() == 1);
    Tesk::terminateLibrary();

    Tesk::setDiagnosticsLevel(0);
    setStartup("AssertStartup", false);
    version.fixed().dwFileFlagsMask = 0;
    start();
    CHECK(Tesk::getDiagnosticsLevel() == 0);
}

TEST_CASE_FIXTURE(CLibraryFixture, "the installation is named by the description beside the module")
{
    start();
    CHECK(Tesk::getApplicationVersionLabel().IsEmpty());
    Tesk::terminateLibrary();

    char sPath[MAX_PATH];
    ::GetModuleFileNameA(nullptr, sPath, MAX_PATH);
    const CString sFile = CString(sPath).Left(CString(sPath).ReverseFind('.')) + ".avf";
    std::ofstream(sFile.GetString(), std::ios::binary) << "ProductName=Halvoran Desk";
    start();
    CHECK(Tesk::getApplicationVersionLabel().IsEmpty());  // a name without a version is no label
    Tesk::terminateLibrary();
    std::ofstream(sFile.GetString(), std::ios::binary)
        << "; comment\r\n productname = Halvoran Desk \r\nother\r\nPRODUCTVERSION=4.1";
    start();
    ::DeleteFileA(sFile);
    CHECK(Tesk::G_pApplicationID->getName() == "Halvoran Desk");
    CHECK(Tesk::G_pApplicationID->getVersion() == "4.1");
    CHECK(Tesk::getApplicationVersionLabel() == "Halvoran Desk 4.1");
    CHECK(Tesk::Registry::GetRemoteConfigurableKey() == "Software\\Zavik\\Halvoran Desk\\Remote Configurable");
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
