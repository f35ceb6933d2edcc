#include "library/text/Regex.h"

#include "library/expansion/DatePass.h"
#include "tests/library/TestRandom.h"
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

// The expression as it is meant, on texts short enough for it.
std::string reference(std::string sText, const std::string& sStart, const std::string& sEnd)
{
    const boost::regex expression("(^.*)\\" + sStart + "DATE::(.+?)\\" + sEnd + "(.*$)");
    boost::smatch match;
    while (boost::regex_match(sText, match, expression) && match.size() == 4)
        sText = match[1].str() + formatTime(moment, match[2].str(), true) + match[3].str();
    return sText;
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

TEST_CASE("by hand and by regular expression generated texts come out the same")
{
    CTestRandom random;
    CAPTURE(random.seed());
    const std::pair<const char*, const char*> aDelimiters[] = {{"%", "%"}, {"[", "]"}, {"|", "|"}, {"$", "."},
                                                               {":", ":"}, {"^", "*"}, {"\\", "+"}};
    int iExpanded = 0;
    for (int i = 0; i < 8000; ++i) {
        const auto [sStart, sEnd] = aDelimiters[random.once(2) ? 0 : random.below(std::size(aDelimiters))];
        const std::string sToken = std::string(sStart) + "DATE::";
        std::string sText;
        for (std::size_t pieces = random.below(10); pieces > 0; --pieces) {
            switch (random.below(4)) {
            case 0:
                sText += sToken + random.text("|Y |m | || x DATE:: \n", 3) + sEnd;
                break;
            case 1:
                sText += sToken;
                break;
            default:
                sText += random.text("% | || |Y a : :: [ ] DATE $ . ^ * \\ + \n", 4);
            }
        }
        const std::string sResult = expand(sText, sStart, sEnd);
        iExpanded += sResult != sText;
        CAPTURE(sText);
        REQUIRE(sResult == reference(sText, sStart, sEnd));
    }
    CHECK(iExpanded > 2000);
    CHECK(expand("%%DATE::|Y%%", "%%", "%%") == "2005");
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
