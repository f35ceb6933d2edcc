#include "library/files/Locator.h"
#include "library/text/StringView.h"

#include "library/diagnostics/LibraryState.h"
#include "library/files/DomainSettings.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/registry/Registry.h"
#include "library/system/Handles.h"
#include "objectarx/dbapserv.h"
#include "tests/library/Environment.h"
#include "tests/library/Installation.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"
#include "tests/support/ThreadCodePage.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <fstream>

using namespace Tesk;
using Support::File::CLocator;
using Support::File::CStringList;

namespace {

struct AppFixture {
    CTestHive hive;
    CInstallation installation{"App\\"};
    const CTestFolder& tree = installation.tree();
};

std::string location(int iWhere) { return Tesk::toString(getLocation(iWhere)); }

}  // namespace

TEST_CASE("paths come apart by characters, and end in one backslash")
{
    CHECK(CPathParts("a/b").fileName() == "b");
    const CThreadLocale locale(CThreadLocale::japanese);
    CHECK(CPathParts("C:\\\x95\\\\\x95\\.dwg").m_sBase == "\x95\\");
    CHECK(withBackslash("\x95\\") == "\x95\\\\");
    CHECK(withBackslash("") == "");
    CHECK(withoutBackslash("\x95\\") == "\x95\\");
}

TEST_CASE("files and folders are told apart")
{
    const CTestFolder tree;
    const std::string sFile = tree.write("A\\file.txt"), sFolder = tree.path("A");
    // As an editor has it that lets others read and write.
    const UniqueHandle edited(::CreateFileA(sFile.c_str(), GENERIC_READ | GENERIC_WRITE,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    CHECK((edited && fileExists(sFile.c_str()) && !folderExists(sFile.c_str())));
    for (const std::string& sSome : {sFolder, sFolder + "\\", sFolder.substr(0, 3)})
        CHECK((folderExists(sSome.c_str()) && !fileExists(sSome.c_str())));
    for (const std::string& sNone : {tree.path("B"), std::string(), std::string(40000, 'x')})
        CHECK_FALSE((fileExists(sNone.c_str()) || folderExists(sNone.c_str())));
}

TEST_CASE("the search upwards takes the nearest folder and ends at the root")
{
    const CTestFolder tree;
    tree.write("Jobs\\ProjectSettings.txt");
    tree.write("Jobs\\1234\\ProjectSettings.txt");
    tree.folder("Jobs\\1234\\Dwg\\Arch\\");
    const auto find = [&](const char* sBelow) { return Tesk::toString(findProjectFolder(tree.path(sBelow).c_str())); };
    CHECK(find("Jobs\\1234\\Dwg\\Arch") == tree.path("Jobs\\1234\\"));
    CHECK(find("Jobs\\1234\\") == tree.path("Jobs\\1234\\"));
    CHECK(find("Jobs\\5678\\missing") == tree.path("Jobs\\"));
    CHECK(find("Other\\") == "");
    ::DeleteFileA(tree.path("Jobs\\1234\\ProjectSettings.txt").c_str());
    CHECK(find("Jobs\\1234\\") == tree.path("Jobs\\"));
    for (const char* sNowhere : {"", "\\\\nowhere.invalid\\share\\Jobs\\1234", "\\\\?\\C:\\none", "relative\\folder"})
        CHECK(findProjectFolder(sNowhere) == "");

    const std::string sRoot = tree.path("").substr(0, 3);
    const std::string sName = "at the root " + std::to_string(::GetCurrentProcessId());
    std::ofstream(sRoot + sName);
    CHECK(findFolderUpwards(tree.path("Jobs").c_str(), sName.c_str()) == sRoot.c_str());
    ::DeleteFileA((sRoot + sName).c_str());
}

TEST_CASE("the installation's own folders")
{
    const CTestHive hive;
    {
        const CInstallation plain("App\\Bin\\");
        const std::string sRoot = plain.tree().path("App\\Bin\\");
        CHECK(location(LOCATION_DIR_APPLICATION_ROOT) == sRoot);
        CHECK(location(LOCATION_FILE_HELP) == sRoot + "HelpDocs\\Draftrix.hlp");
        CHECK(location(LOCATION_DIR_DOMAIN_SETTINGS) == plain.tree().path("DomainSettings\\"));  // not there
        plain.tree().folder("App\\DomainSettings\\");
        CHECK(location(LOCATION_FILE_DOMAIN_SETTINGS) == plain.tree().path("App\\DomainSettings\\DomainSettings.txt"));
    }
    const CInstallation components("App\\COMPONENTS\\", true);
    const std::string sProgram = location(LOCATION_DIR_PROGRAM);
    CHECK(sProgram.find('~') != std::string::npos);
    CHECK(location(LOCATION_DIR_APPLICATION_ROOT) == CPathParts(withoutBackslash(sProgram)).parent());
    CHECK(location(LOCATION_FILE_STANDARD_SETTINGS) ==
          location(LOCATION_DIR_APPLICATION_ROOT) + "support\\StandardSettings.txt");
    CHECK(location(LOCATION_FILE_DIAGNOSTICS_LOG) == location(LOCATION_DIR_TEMP) + "Zavik Diagnostics\\TheModule.log");
}

TEST_CASE_FIXTURE(AppFixture, "the program files of drive P: come first, but not for Courier Desk")
{
    for (const char* sName : {"", "courier desk", "Courier Desk"}) {
        G_sApplicationName = sName;
        CHECK((getDomainSettingsCandidates()[0].m_sFolder[0] == 'P') == (*sName != 'C'));
    }
    G_sApplicationName.Empty();
}

TEST_CASE_FIXTURE(
    AppFixture,
    "the registered domain settings folder comes first, and an administrator's change reaches the user once")
{
    const CTestHive machine(HKEY_LOCAL_MACHINE);
    for (const char* sFolder : {"User\\", "Admin\\", "DomainSettings\\"})
        tree.folder(sFolder);
    const CString sKey = Registry::GetRemoteConfigurableKey(nullptr);
    const char* const sName = "Domain Settings";
    const auto registered = [&] { return Tesk::toString(getDomainSettingsFolder()); };

    Registry::SetValue(HKEY_CURRENT_USER, sKey, sName, tree.path("gone").c_str());
    CHECK(location(LOCATION_DIR_DOMAIN_SETTINGS) == tree.path("DomainSettings\\"));
    Registry::SetValue(HKEY_CURRENT_USER, sKey, sName, tree.path("User").c_str());
    Registry::SetValue(HKEY_LOCAL_MACHINE, sKey, sName, tree.path("Admin").c_str());
    CHECK(registered() == tree.path("User"));  // without a stamp nothing is copied
    Registry::SetValue(HKEY_LOCAL_MACHINE, sKey + "\\Stamps", sName, "1");
    CHECK(registered() == tree.path("Admin"));
    Registry::SetValue(HKEY_CURRENT_USER, sKey, sName, tree.path("User").c_str());
    CHECK(registered() == tree.path("User"));  // the same stamp: the user's choice stays
    Registry::SetValue(HKEY_LOCAL_MACHINE, sKey + "\\Stamps", sName, "2");
    CHECK(registered() == tree.path("Admin"));
}

TEST_CASE("the temporary folder is the first of the candidates that exists")
{
    const CTestFolder tree;
    tree.folder("One\\");
    tree.folder("Two\\");
    const std::string sOne = tree.path("One"), sTwo = tree.path("Two"), sNone = tree.path("None");
    for (const char* sTemp : {sOne.c_str(), sNone.c_str(), static_cast<const char*>(nullptr)}) {
        const CEnvironment temp("TEMP", sTemp), tmp("TMP", sTwo.c_str());
        CHECK(location(LOCATION_DIR_TEMP) == (sTemp == sOne.c_str() ? sOne : sTwo) + "\\");
    }
    const CEnvironment temp("TEMP", nullptr), tmp("TMP", nullptr);
    CHECK(getTempFolder() == "\\");
    const std::string sSystem = location(LOCATION_DIR_WINDOWS_SYSTEM), sDrive = sSystem.substr(0, 3);
    const std::string aDefaults[] = {sSystem + "Tmp\\", sSystem + "Temp\\", sDrive + "Tmp\\", sDrive + "Temp\\"};
    for (const std::string& sDefault : aDefaults) {
        ::CreateDirectoryA(sDefault.c_str(), nullptr);
        CHECK(location(LOCATION_DIR_TEMP) == sDefault);
    }
    for (const std::string& sDefault : aDefaults)
        ::RemoveDirectoryA(sDefault.c_str());
}

TEST_CASE_FIXTURE(AppFixture, "copies of a settings file run from the most general to the most specific")
{
    const std::string sProduct = acdbHostApplicationServices()->product();
    CStringList vecExpected;
    for (const char* sFolder : {"App\\support\\", "DomainSettings\\support\\", "Job1\\Settings\\support\\",
                                "Job2\\Settings\\support\\", "Job1\\Dwg2\\", "Job1\\Dwg\\", "Job2\\"}) {
        for (const std::string& sName :
             {std::string("Tabs.ini"), std::string("Tabs16.0.ini"), "Tabs" + sProduct + "_16.0.ini"})
            vecExpected.push_back(tree.write(sFolder + sName, "where = " + sName).c_str());
    }
    tree.write("Job1\\ProjectSettings.txt");
    tree.write("Job2\\ProjectSettings.txt");
    const CStringList vecDrawings{tree.path("Job2\\C.dwg").c_str(), tree.path("Job1\\Dwg2\\B.dwg").c_str(),
                                  tree.path("Job1\\Dwg\\A.dwg").c_str(), tree.path("Job1\\Dwg\\A2.dwg").c_str()};

    CLocator locator;
    CStringList vecFiles;
    locator.findFiles(vecFiles, vecDrawings, "Tabs.ini", "");
    CHECK(vecFiles == vecExpected);
    // Gaps in the layers leave no gap in the list.
    ::DeleteFileA(vecExpected[0]);
    ::DeleteFileA(vecExpected[4]);
    vecFiles.clear();
    locator.findFiles(vecFiles, vecDrawings, "Tabs.ini", "");
    vecExpected.erase(vecExpected.begin() + 4);
    CHECK(vecFiles == CStringList(vecExpected.begin() + 1, vecExpected.end()));
}
