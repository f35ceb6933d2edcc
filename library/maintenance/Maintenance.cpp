#include "library/maintenance/Maintenance.h"

#include "library/diagnostics/LibraryState.h"
#include "library/diagnostics/Prerelease.h"
#include "library/diagnostics/VersionBlock.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/files/TextFileContents.h"
#include "library/maintenance/AssertionReport.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/maintenance/GUIConsole.h"
#include "library/maintenance/MiniDumper.h"
#include "library/maintenance/TraceLine.h"
#include "library/registry/Registry.h"

namespace Tesk {

std::unique_ptr<CMiniDumper> G_pMiniDumper;

namespace {

// The order is meant: "AssertStartup" wins, with the old log already deleted.
void chooseDiagnosticsLevel()
{
    const CString sKey = "Software\\" + CVersionBlock::getCompanyName() + "\\" + CVersionBlock::getProductName();
    HKEY hkRegistryKey = nullptr;
    const bool bOpen = Registry::OpenKey(HKEY_CURRENT_USER, sKey, hkRegistryKey, false);
    const auto isOn = [&](const char* sName) {
        bool bOn = false;
        return bOpen && Registry::ReadValue(hkRegistryKey, sName, bOn) && bOn;
    };
    if (CVersionBlock::isPrerelease() || isOn("DebugStartup")) {
        CDiagnosticsLog::get().startAfresh();
        setDiagnosticsLevel(2);
    }
    if (isOn("AssertStartup"))
        setDiagnosticsLevel(1);
    if (bOpen)
        TESK_VERIFY(::RegCloseKey(hkRegistryKey) == ERROR_SUCCESS);
}

}  // namespace

void initialiseLibrary(const char* sApplicationName, HINSTANCE hModule, bool bCreateMiniDumper)
{
    setDiagnosticsSinks({[] { CDiagnosticsLog::get().getFileName(); },  // whose lookup must not trace
                         writeTrace, reportAssertion});
    TESK_ASSERT(!G_bLibraryInitialised);
    TESK_ASSERT(!CString(sApplicationName).IsEmpty());
    G_sApplicationName = sApplicationName;
    G_hCurrentModule = hModule;
    G_bLibraryInitialised = true;
    TESK_ASSERT(G_pApplicationID == NULL);
    G_pApplicationID = readApplicationID(getLocation(LOCATION_FILE_MODULE));
    if (bCreateMiniDumper) {
        TESK_ASSERT(G_pMiniDumper == NULL);
        G_pMiniDumper.reset();  // before the new one looks at the filter in force
        G_pMiniDumper = std::make_unique<CMiniDumper>(CDiagnosticsLog::getDumpStem());
    }
    TESK_VERIFY_TEXT(CVersionBlock::initialise(), "Tesk::CVersionBlock::initialise()");
    chooseDiagnosticsLevel();
}

void terminateLibrary()
{
    TESK_ASSERT(G_hCurrentModule != NULL);
    TESK_ASSERT(G_bLibraryInitialised);
    TESK_ASSERT(!G_sApplicationName.IsEmpty());
    G_pMiniDumper.reset();
    CGUIConsole::get().release();
    CVersionBlock::terminate();
    TESK_ASSERT(G_pApplicationID != NULL);
    G_pApplicationID.reset();
    G_sApplicationName.Empty();
    G_hCurrentModule = nullptr;
    G_bLibraryInitialised = false;
}

std::unique_ptr<CApplicationID> readApplicationID(const char* sModuleFile)
{
    auto pID = std::make_unique<CApplicationID>();
    try {
        CTextFileContents contents(CPathParts(sModuleFile).withExtension(".avf").c_str(), true);
        for (std::string_view sLine; contents.nextConverted(sLine);)
            pID->addLine(sLine);
    } catch (CException* pException) {
        pException->Delete();
    }
    return pID;
}

}  // namespace Tesk
