#include "library/files/FileUtilities_TextFiles.h"
#include "library/system/Handles.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include "tests/library/Raised.h"
#include "tests/library/Utf16.h"
#include "tests/support/TestFolder.h"
#include "tests/support/ThreadCodePage.h"

#include <doctest/doctest.h>

using namespace std::string_literals;
using Lines = std::vector<std::string>;
using WideLines = std::vector<std::wstring>;

namespace {

Lines ansiLines(const CString& sFile)
{
    std::vector<CString> vLines;
    Tesk::readAnsiTextFileLines(sFile, vLines);
    Lines lines;
    for (const CString& sLine : vLines)
        lines.push_back(Tesk::toString(sLine));
    return lines;
}

WideLines wideLines(const CString& sFile)
{
    WideLines lines = {L"before"};
    Tesk::readTextFileLines(sFile, lines);
    lines.erase(lines.begin());  // the list is added to
    return lines;
}

}  // namespace

TEST_CASE("lines of narrow files and of UTF-16 ones")
{
    const CTestFolder folder;
    const std::pair<std::string, Lines> narrow[] = {
        {"", {}},
        {"a\n\n", {"a", ""}},
        {"a\r\nb\rc\r\r\nd\r", {"a", "b\rc\r", "d\r"}},
        {"x\0y\nz"s, {"x\0y"s, "z"}},
        {"a\r\x1A\nc", {"a\r"}},
        {"\xFE\xFF\0a\0\n\0b"s, {"\xFE\xFF\0a\0"s, "\0b"s}},
        {"\xFF", {"\xFF"}},
    };
    for (const auto& [sBytes, lines] : narrow) {
        CAPTURE(sBytes);
        const CString sFile = folder.write("a.txt", sBytes).c_str();
        CHECK(ansiLines(sFile) == lines);
        CHECK(wideLines(sFile).size() == lines.size());
        CHECK_FALSE(Tesk::isUnicodeTextFile(sFile));
    }
    const std::pair<std::string, WideLines> wide[] = {
        {"\xFF\xFE"
         "a",
         {}},
        {utf16(L"a\r\n\nb\rc") + "x", {L"a", L"", L"b\rc"}},
        {utf16(L"\x0416\x3042\xFFFFz"), {L"\x0416\x3042z"}},
        {utf16(L"a\x1Az"), {L"a"}},
        {utf16(L"\x0A0D\x0D0A\n"s + L'\0'), {L"\x0A0D\x0D0A", L"\0"s}},
        {utf16(L"\xFEFFz"), {L"\xFEFFz"}},
    };
    for (const auto& [sBytes, lines] : wide) {
        CAPTURE(sBytes);
        const CString sFile = folder.write("a.txt", sBytes).c_str();
        const UniqueHandle edited(::CreateFileA(sFile, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                                nullptr, OPEN_EXISTING, 0, nullptr));
        CHECK(wideLines(sFile) == lines);
        CHECK(Tesk::isUnicodeTextFile(sFile));
    }
}

TEST_CASE("a file that does not open raises its error number and path")
{
    const CTestFolder folder;
    const CString sFolder = folder.path().c_str(), sMissing = sFolder + "none\\a.txt";
    const std::string sError = "2 " + std::string(sMissing);
    std::vector<CString> vNarrow;
    WideLines vWide;
    CHECK(fileErrorOf([&] { Tesk::isUnicodeTextFile(sMissing); }) == sError);
    CHECK(fileErrorOf([&] { Tesk::readTextFileLines(sMissing, vWide); }) == sError);
    CHECK(fileErrorOf([&] { Tesk::readAnsiTextFileLines(sMissing, vNarrow); }) == sError);
    CHECK(fileErrorOf([&] { Tesk::writeTextFileLines(sMissing, {"a"}, true); }) == sError);
    CHECK(fileErrorOf([&] { Tesk::writeTextFileLines(sFolder, {"a"}, false); }) == "13 " + std::string(sFolder));
    CHECK(fileErrorOf([&] { Tesk::readAnsiTextFileLines("Z:\\proc\\self\\mem", vNarrow); }) ==
          "22 Z:\\proc\\self\\mem");
    // On a full device, seen in the text or at its line's end.
    for (const std::size_t length : {100'000u, 1u}) {
        const std::vector<CString> vLines{std::string(length, 'x').c_str()};
        CHECK(fileErrorOf([&] { Tesk::writeTextFileLines("Z:\\dev\\full", vLines, true); }) == "28 Z:\\dev\\full");
    }
}

TEST_CASE("a capital that the code page lacks leaves the rest of the text alone")
{
    const CThreadLocale locale(CThreadLocale::chinese);
    REQUIRE(Tesk::getThreadCodePage() == 936);
    // "n" with an acute has two bytes there, and its capital none of its own.
    CHECK(Tesk::MultiByte::upper("key \xA8\xBD end") == "KEY ? END");
}
