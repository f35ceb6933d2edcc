#include "tabscheck/Spelling.h"

#include "library/text/MultiByte.h"

#include <algorithm>

namespace tabscheck {

namespace {

constexpr std::size_t kLongestWord = 64;  // no known word is longer

// Edits, a swap of neighbours counting as one.
std::size_t distance(const std::string& sOne, const std::string& sOther)
{
    std::vector<std::vector<std::size_t>> rows(sOne.size() + 1, std::vector<std::size_t>(sOther.size() + 1));
    for (std::size_t i = 0; i <= sOne.size(); ++i) {
        for (std::size_t j = 0; j <= sOther.size(); ++j) {
            rows[i][j] = i + j;
            if (i == 0 || j == 0)
                continue;
            const std::size_t change = sOne[i - 1] == sOther[j - 1] ? 0 : 1;
            rows[i][j] = std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + change});
            if (i > 1 && j > 1 && sOne[i - 1] == sOther[j - 2] && sOne[i - 2] == sOther[j - 1])
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    }
    return rows.back().back();
}

}  // namespace

std::string nearest(std::string_view sWord, const std::vector<std::string>& words, std::size_t mostEdits)
{
    if (sWord.size() > kLongestWord)
        return {};
    const std::string sUpper = Tesk::MultiByte::upper(sWord);
    std::string sBest;
    std::size_t best = mostEdits + 1;
    for (const std::string& sKnown : words) {
        // As many letters more or fewer are as many edits at least.
        if (std::max(sKnown.size(), sUpper.size()) - std::min(sKnown.size(), sUpper.size()) >= best)
            continue;
        const std::size_t edits = distance(sUpper, Tesk::MultiByte::upper(sKnown));
        if (edits < best)
            sBest = sKnown;
        best = std::min(best, edits);
    }
    return sBest;
}

std::string suggestion(std::string_view sWord, const std::vector<std::string>& words, std::string_view sMark)
{
    const std::string sNearest = nearest(sWord, words, std::max<std::size_t>(sWord.size() / 4, 1));
    return sNearest.empty() ? "" : "; did you mean \"" + std::string(sMark).append(sNearest).append(sMark) + "\"?";
}

}  // namespace tabscheck
