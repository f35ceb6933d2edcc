#include "library/expansion/KeywordPass.h"

#include "tests/support/ThreadCodePage.h"

#include <windows.h>
#include <doctest/doctest.h>

using Tesk::KeywordMap;

namespace {

std::string expand(std::string sText, const KeywordMap& mapKeywords, std::string_view sStart = "%",
                   std::string_view sEnd = "%")
{
    return Tesk::expandKeywords(std::move(sText), mapKeywords, sStart, sEnd);
}

}  // namespace

TEST_CASE("a keyword is replaced until the text has none, one after the other in the table's order")
{
    const struct {
        const char *text, *expected;
        KeywordMap keywords;
        const char *start = "%", *end = "%";
    } rows[] = {
        {"%A%%A% x%A%", "aa xa", {{"A", "a"}}},
        {"%A% %AB% %A", "a %AB% %A", {{"A", "a"}}},
        {"%B%%A%", "bb", {{"A", "%B%"}, {"B", "b"}}},
        {"%A%%B%", "a%A%", {{"A", "a"}, {"B", "%A%"}}},  // too late for the one before
        {"%A%%", "b", {{"A", "%B"}, {"B", "b"}}},
        {"%%A%", "A%", {{"A", "A%"}}},  // what came makes one with what stands before it
        {"%A%%B%", "%A%b", {{"A", "x%A%"}, {"B", "b"}}},
        {"%%A% %B%", "%%A% b", {{"A", "A%%A"}, {"B", "b"}}},  // without end by what stands around it
        {"%% %x%", "e %x%", {{"", "e"}}},
        {"[%A] [A] A", "a [A] A", {{"A", "a"}}, "[%", "]"},
        {"[A%] A%", "[a] a", {{"A", "a"}}, "", "%"},
        {"[AB", "a", {{"A", "a"}, {"AB", "x"}}, "[", "B"},
        {"aXbX", "aYbY", {{"", "no"}, {"X", "Y"}}, "", ""},
    };
    for (const auto& row : rows) {
        CAPTURE(row.text);
        CHECK(expand(row.text, row.keywords, row.start, row.end) == row.expected);
    }
    const CThreadLocale locale(CThreadLocale::japanese);
    // 0x5B and 0x5D as second bytes look like brackets; half a character may come, too.
    CHECK(expand("\x83[A] [A] [\x83[] [\x83]", {{"A", "\x83"}, {"\x83[", "k"}, {"\x83", "no"}}, "[", "]") ==
          "\x83[A] \x83 k no");
    CHECK(expand("[A][A] [B]", {{"A", "\x83"}, {"B", "\x83[B]"}}, "[", "]") == "\x83[A] \x83[B]");
    CHECK(expand("\x83[ [", {{"[", "x"}}, "", "") == "\x83[ x");
}

TEST_CASE("a keyword that would bring too much text stays")
{
    KeywordMap mapKeywords;
    for (char c = 'A'; c < 'Z'; ++c)
        mapKeywords[std::string(1, c)] = std::string("%") + char(c + 1) + "%%" + char(c + 1) + "%";
    mapKeywords["Z"] = std::string(1000, 'z');
    const std::string sResult = expand("%A%", mapKeywords);
    CHECK(sResult.size() > 512 * 1024);
    CHECK(sResult.size() <= 1024 * 1024 + 3);
}

TEST_CASE("a long way to the end is no way without end")
{
    const std::string sA(889, 'A'), sB(889, 'B');  // 790,321 replacements
    CHECK(expand(sA + sB, {{"AB", "BA"}}, "", "") == sB + sA);
    std::string sText;
    while (sText.size() < 256 * 1024)
        sText += "%A%%%B";
    CHECK(expand(sText, {{"A", "%A"}, {"B", "b"}, {"%B", "c"}}).size() < sText.size());
}
