#include "library/expansion/KeywordPass.h"

#include "tests/library/TestRandom.h"
#include "tests/support/ThreadCodePage.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <iterator>

using Tesk::KeywordMap;

namespace {

std::string expand(std::string sText, const KeywordMap& mapKeywords, std::string_view sStart = "%",
                   std::string_view sEnd = "%")
{
    return Tesk::expandKeywords(std::move(sText), mapKeywords, sStart, sEnd);
}

// The rules once more, as plain as they go: every keyword in its turn, every search from the
// beginning, character by character.
std::size_t plainFind(const std::string& sText, const std::string& sToken)
{
    for (std::size_t at = 0; at + sToken.size() <= sText.size();) {
        if (sText.compare(at, sToken.size(), sToken) == 0)
            return at;
        at += ::IsDBCSLeadByteEx(CP_THREAD_ACP, static_cast<BYTE>(sText[at])) ? 2 : 1;
    }
    return std::string::npos;
}

std::string plainExpand(std::string sText, const KeywordMap& mapKeywords, const std::string& sStart,
                        const std::string& sEnd)
{
    for (const auto& [sKeyword, sValue] : mapKeywords) {
        const std::string sToken = sStart + sKeyword + sEnd;
        std::string sResult = sText;
        if (sToken.empty() || plainFind(sValue, sToken) != std::string::npos)
            continue;
        std::size_t at = plainFind(sResult, sToken);
        for (int rounds = 0; at != std::string::npos && rounds < 2000; ++rounds) {
            sResult.replace(at, sToken.size(), sValue);
            at = plainFind(sResult, sToken);
        }
        if (at == std::string::npos)
            sText = sResult;
    }
    return sText;
}

// Small alphabets, so that tokens overlap, nest and come about by replacement all the time.
void compareWithReference(std::string_view sAlphabet, std::string_view sKeywordAlphabet, int iRounds)
{
    CTestRandom random;
    CAPTURE(random.seed());
    const std::pair<const char*, const char*> aDelimiters[] = {{"%", "%"},  {"[", "]"}, {"%", "]"}, {"%%", "%%"},
                                                               {"[", "[%"}, {"", "%"},  {"%", ""},  {"", ""}};
    int iExpanded = 0;
    for (int i = 0; i < iRounds; ++i) {
        KeywordMap mapKeywords;
        for (std::size_t count = random.below(9); count > 0; --count)
            mapKeywords[random.text(sKeywordAlphabet, 3)] = random.text(sAlphabet, random.once(3) ? 8 : 2);
        const auto [sStart, sEnd] = aDelimiters[random.once(2) ? 0 : random.below(std::size(aDelimiters))];
        std::string sText;
        for (std::size_t pieces = random.below(12); pieces > 0; --pieces) {
            if (mapKeywords.empty() || random.once(2)) {
                sText += random.text(sAlphabet, 3);
            } else {
                const auto entry = std::next(mapKeywords.begin(), static_cast<int>(random.below(mapKeywords.size())));
                sText += sStart + entry->first + sEnd;
            }
        }
        const std::string sResult = expand(sText, mapKeywords, sStart, sEnd);
        iExpanded += sResult != sText;
        CAPTURE(i);
        CAPTURE(sText);
        REQUIRE(sResult == plainExpand(sText, mapKeywords, sStart, sEnd));
    }
    CHECK(iExpanded > iRounds / 4);
}

}  // namespace

TEST_CASE("a keyword without end stays, and so does one that would bring too much text")
{
    CHECK(expand("%%A% %B%", {{"A", "A%%A"}, {"B", "b"}}) == "%%A% b");  // by what stands around it
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

TEST_CASE("generated templates expand as by the plain walk of the table")
{
    compareWithReference("% % % A B x [ ]", "A B x %", 6000);
    const CThreadLocale locale(CThreadLocale::japanese);
    REQUIRE(::IsDBCSLeadByteEx(CP_THREAD_ACP, 0x83) != FALSE);
    // 0x5B and 0x5D as second bytes look like brackets; half characters come as well.
    compareWithReference("% % [ ] \x83[ \x83] \x83 A B", "A B \x83[", 6000);
    CHECK(expand("\x83[A] [A]", {{"A", "a"}}, "[", "]") == "\x83[A] a");
}
