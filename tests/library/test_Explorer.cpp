#include "library/files/Explorer.h"

#include "tests/library/Recorders.h"

#include <doctest/doctest.h>

TEST_CASE("Explorer selects a file; of one that has gone it shows the folder")
{
    char sWindows[MAX_PATH];
    ::GetWindowsDirectoryA(sWindows, sizeof sWindows);
    const std::string sExplorer = std::string(sWindows) + "\\explorer.exe", sKept = sExplorer + ".kept";
    REQUIRE((::MoveFileA(sExplorer.c_str(), sKept.c_str()) || ::DeleteFileA(sExplorer.c_str())));
    CHECK(::CopyFileA(besideThisProgram("commandrecorder.exe").c_str(), sExplorer.c_str(), TRUE));
    const CCommands commands;
    const CTestFolder folder;
    const std::string sFile = folder.write("a b\\c.dwg");
    CHECK(Tesk::showInExplorer(nullptr, sFile.c_str()));
    const std::string sProgram = "\"" + sExplorer + "\" ", sSelected = sProgram + "/select,\"" + sFile + "\"\n";
    CHECK(commands.first(1) == sSelected);
    ::DeleteFileA(sFile.c_str());
    CHECK(Tesk::showInExplorer(nullptr, sFile.c_str()));
    CHECK(commands.first(2) == sSelected + sProgram + "\"" + folder.path("a b") + "\"\n");
    CHECK_FALSE(Tesk::showInExplorer(nullptr, folder.path("none\\c.dwg").c_str()));
    // What was started keeps its file as long as it runs.
    while (!::MoveFileExA(sKept.c_str(), sExplorer.c_str(), MOVEFILE_REPLACE_EXISTING))
        ::Sleep(20);
}
