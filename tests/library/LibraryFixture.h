#pragma once

// A place of its own for what the diagnostics touch: registry, temporary folder
// and level. The library itself is started and stopped by the tests.

#include "library/diagnostics/LibraryState.h"
#include "library/diagnostics/Prerelease.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/maintenance/Maintenance.h"
#include "library/registry/Registry.h"
#include "tests/library/Environment.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

class CLibraryFixture {
public:
    CLibraryFixture() { Tesk::setDiagnosticsLevel(0); }
    ~CLibraryFixture()
    {
        Tesk::setDiagnosticsLevel(0);
        if (Tesk::G_bLibraryInitialised)
            Tesk::terminateLibrary();
    }
    CLibraryFixture(const CLibraryFixture&) = delete;
    CLibraryFixture& operator=(const CLibraryFixture&) = delete;

    // Starts the library as the entry point does, for this program.
    void start() { Tesk::initialiseLibrary("Test", ::GetModuleHandleA(nullptr), false); }

    void startAt(int iLevel)
    {
        start();
        Tesk::CDiagnosticsLog::get().startAfresh();
        Tesk::setDiagnosticsLevel(iLevel);
    }

    static void setStartup(const char* sName, bool bOn)
    {
        REQUIRE(Tesk::Registry::SetValue(HKEY_CURRENT_USER, "Software\\Zavik\\Halvoran", sName, bOn));
    }

    CString moduleName() const
    {
        char sPath[MAX_PATH];
        ::GetModuleFileNameA(nullptr, sPath, MAX_PATH);
        const CString sModule(sPath);
        return sModule.Mid(sModule.ReverseFind('\\') + 1);
    }

    CString logFile() const
    {
        const CString sModule = moduleName();
        return m_folder.path("Zavik Diagnostics\\").c_str() + sModule.Left(sModule.ReverseFind('.')) + ".log";
    }

    std::string log() const { return CTestFolder::read(logFile()); }

    const CTestFolder& folder() const { return m_folder; }

private:
    CTestFolder m_folder;
    CEnvironment m_temp{"TEMP", m_folder.path().c_str()};
    CTestHive m_hive;
};
