#include "library/expansion/KeywordExpansion.h"
#include "library/text/StringView.h"

#include "library/expansion/DatePass.h"
#include "library/files/SupportFileLocator.h"
#include "tests/support/TestFolder.h"
#include "tests/support/TestHive.h"
#include "tests/support/ThreadCodePage.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <time.h>

namespace {

class CExpansion : public Tesk::CKeywordExpansion {
public:
    explicit CExpansion(const std::string& sFileName, int iIndex = 1, int iCount = 1)
        : CKeywordExpansion(sFileName.c_str(), iIndex, iCount)
    {
    }

    // The value of a keyword; "(none)" when it is not in the table.
    std::string value(const char* sKeyword) const
    {
        const auto found = m_mapKeywords.find(sKeyword);
        return found == m_mapKeywords.end() ? "(none)" : found->second;
    }
    using CKeywordExpansion::addToMap;
};

}  // namespace

TEST_CASE("the keywords of a file name")
{
    const CExpansion file("C:\\Jobs\\1234\\A-100.rev2.dwg", 2, 7);
    CHECK(file.expandString("%FILENAME% (%DRAWING_INDEX%/%DRAWING_COUNT%)") == "A-100.rev2 (2/7)");
    CHECK(file.value("DIR_PROJECT_DWG_SETTINGS") == "");
    CHECK(file.expandString("%path% %NOSUCH% 100%") == "%path% %NOSUCH% 100%");
    CHECK(file.expandString("[X_FOLDER] %PATH%", "[", "]") == "C:/Jobs/1234/ %PATH%");
    CHECK(file.expandString("[DRIVE[", "[", "") == "C");
    CHECK(file.expandString("") == "");

    const CExpansion unc("\\\\server\\share\\A");
    CHECK(unc.expandString("%DRIVE%%EXTENSION%%FOLDER%") == "\\\\server\\share\\");
    CHECK(unc.value("DIRECTORY") == "server\\share\\");
    CHECK(CExpansion("x").value("DIRECTORY") == "");

    const CThreadLocale locale(CThreadLocale::japanese);
    CHECK(CExpansion("\x83\x41\x83\x41\\A.dwg").value("DIRECTORY") == "\\");
    CHECK(CExpansion("C:\\\x95\\\\A.dwg").value("X_FOLDER") == "C:/\x95\\/");
}

TEST_CASE("without a file name there are the folders, the names and the current time")
{
    constexpr char sFormat[] = "|Y-|m-|d |H:|M:|S";
    const std::string sBefore = Tesk::formatTime(::_time64(nullptr), sFormat, false);
    const CExpansion none("");
    const std::string sAfter = Tesk::formatTime(::_time64(nullptr), sFormat, false);
    ::Sleep(1001);
    CHECK(none.value("PATH") == "(none)");
    CHECK(none.value("DIR_TEMP") == Tesk::getLocation(Tesk::LOCATION_DIR_TEMP).GetString());
    char sName[256] = "";
    DWORD dwSize = sizeof sName;
    ::GetUserNameA(sName, &dwSize);
    CHECK(none.value("USER_NAME") == sName);
    dwSize = sizeof sName;
    ::GetComputerNameA(sName, &dwSize);
    CHECK(none.value("COMPUTER_NAME") == sName);
    CHECK(none.expandString("a%NEWLINE%b") == "a\nb");
    CHECK(none.expandString("%UPDATE_DATE::|Y%") == "%UPDATE_DATE::|Y%");
    // The current time is that of the making; New York is some hours behind.
    const std::string sNow = Tesk::toString(none.expandString("%CURRENT_DATE::|Y-|m-|d |H:|M:|S%"));
    CHECK((sBefore <= sNow && sNow <= sAfter));
    const std::string sUtc = Tesk::toString(none.expandString("%CURRENT_DATE_UTC::|Y-|m-|d |H:|M:|S%"));
    CHECK((sUtc.substr(0, 13) > sNow.substr(0, 13) && sUtc.substr(13) == sNow.substr(13)));
}

TEST_CASE("a drawing's project and the time of its file")
{
    const CTestFolder tree;
    tree.write("1234\\ProjectSettings.txt");
    const std::string sDrawing = tree.write("1234\\Dwg\\A.dwg");
    // New York's time, four hours behind UTC in summer.
    const SYSTEMTIME written{2005, 7, 0, 24, 8, 5, 9, 0};
    FILETIME local, time;
    ::SystemTimeToFileTime(&written, &local);
    ::LocalFileTimeToFileTime(&local, &time);
    const HANDLE hFile =
        ::CreateFileA(sDrawing.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    REQUIRE(::SetFileTime(hFile, nullptr, nullptr, &time));
    CExpansion drawing(sDrawing);  // while the host has it open
    ::CloseHandle(hFile);
    CHECK(drawing.value("DIR_PROJECT_DWG_ROOT") == tree.path("1234\\"));
    CHECK(drawing.value("DIR_PROJECT_DWG_SETTINGS") == tree.path("1234\\Settings"));
    CHECK(drawing.expandString("%UPDATE_DATE_UTC::|Y-|m-|d |H:|M:|S%") == "2005-07-24 12:05:09");
    CHECK(drawing.expandString("%UPDATE_DATE::|Y-|m-|d |H:|M:|S%") == "2005-07-24 08:05:09");

    // A copy is as good; another value for a keyword replaces the one before.
    drawing.addToMap("FILENAME", "B\\C");
    drawing.addToMap("NONE", nullptr);
    const CExpansion copy(drawing);
    CHECK(copy.expandString("%FILENAME%%X_FILENAME%%NONE%%UPDATE_DATE::|Y%") == "B\\CB/C2005");
    CHECK(copy.expandString("%CURRENT_DATE_UTC::|Y%") != "2005");
}
