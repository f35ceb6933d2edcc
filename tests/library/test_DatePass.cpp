#include "library/expansion/DatePass.h"
#include "tests/support/ThreadCodePage.h"

#include <windows.h>
#include <doctest/doctest.h>
#include <time.h>

using Tesk::expandDateKeyword;
using Tesk::formatTime;

namespace {

// 2005-03-07 13:05:09 UTC
constexpr __time64_t moment = 1110200709;

std::string expand(std::string sText, std::string_view sStart = "%", std::string_view sEnd = "%")
{
    return expandDateKeyword("DATE", moment, true, std::move(sText), sStart, sEnd);
}

}  // namespace

TEST_CASE("a time by its format")
{
    CHECK(formatTime(moment, "|Y-|m-|d |H:|M:|S", true) == "2005-03-07 13:05:09");
    CHECK(formatTime(moment, "%Y||", true) == "2005%");
    CHECK(formatTime(moment, "|#d.|#m.", true) == "7.3.");
    CHECK(formatTime(moment, std::string(127, 'x'), true) == std::string(127, 'x'));
    CHECK(formatTime(moment, std::string(128, 'x'), true) == "");

    CHECK(formatTime(moment, "|d |H", false) == "07 08");  // New York's
    // A directive that the C runtime does not know would end the process.
    int iKnown = 0;
    for (int c = 1; c < 256; ++c)
        iKnown += !formatTime(moment, std::string("x%") + static_cast<char>(c), true).empty();
    CHECK(iKnown == 24);  // 22 letters, "%", and "|" that stands for it
    CHECK(formatTime(moment, "|Y|", true) == "");
    CHECK(formatTime(moment, "|Y|#", true) == "");
    // In a double-byte code page the second byte of a character is no vertical bar.
    const CThreadLocale locale(CThreadLocale::japanese);
    CHECK(formatTime(moment, "\x83|Y |Y", true) == "\x83|Y 2005");
}

TEST_CASE("the last opening that leaves room ends at the first closing behind a character, over and over")
{
    const struct {
        const char *text, *expected, *start = "%", *end = "%";
    } rows[] = {
        {"a%DATE::|Y%b\n%DATE::|m%%", "a2005b\n03%"},
        {"%DATE::|Y", "%DATE::|Y"},
        {"%DATE::%", "%DATE::%"},
        {"%DATE::%d%", "07"},  // a character at least
        {"%DATE::%DATE::|Y%%", "2005"},
        {"%DATE::%DATE::|Y%", "%DATE::2005"},
        {"%DATE::|Y%DATE::|m%", "%DATE::|Y03"},
        {"%DATE::|Y%%DATE::", "2005%DATE::"},
        {"%DATE::|Y%%DATE::%", "2005%DATE::%"},
        {"%DATE::|Y%%DATE::|d\n", "2005%DATE::|d\n"},
        {"%DATE::x|%DATE::|m%%", ""},
        {"[DATE::|Y] ]%DATE::|m%", "2005 ]%DATE::|m%", "[", "]"},
        {"$DATE::|Y.DATE::|m.", "2005DATE::|m.", "$", "."},
        {"|DATE::Y|DATE::m|", "|DATE::Ym", "|", "|"},
        {":DATE:::|Y: ::DATE::|m:", ":2005 :03", ":", ":"},
        {"^DATE::|Y*+^DATE::|d*", "2005+07", "^", "*"},
        {"%DATE::x%", "x"},
        {"%%DATE::|Y%%%%DATE::%%", "2005%%DATE::%%", "%%", "%%"},  // from here on by the expression
        {"<DATE::|Y> x", "<2005> x", "<", ">"},                    // to which these are ends of words
    };
    for (const auto& row : rows) {
        CAPTURE(row.text);
        CHECK(expand(row.text, row.start, row.end) == row.expected);
    }
}

TEST_CASE("a long text neither ends the search nor the process")
{
    std::string sText;
    while (sText.size() < 1024 * 1024)
        sText += "%DATE::|Y% %DATE::";
    CHECK(expand(sText + "%").find("2005") != std::string::npos);
    CHECK(expand("%DATE::" + std::string(1024 * 1024, '|') + "%") == "");
    // By the expression: expanded or left, but back.
    CHECK(!expand("<DATE::|Y>" + std::string(1024 * 1024, 'x'), "<", ">").empty());
}
