#include "library/expansion/KeywordPass.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace Tesk {

namespace {

bool endsWith(const std::string& sText, const std::string& sEnd)
{
    return sText.size() >= sEnd.size() && sText.compare(sText.size() - sEnd.size(), sEnd.size(), sEnd) == 0;
}

// Behind each opening delimiter.
std::vector<std::size_t> findKeywords(const std::string& sText, std::string_view sStart,
                                      const MultiByte::CLeadBytes& lead)
{
    std::vector<std::size_t> vecPlaces;
    for (std::size_t at = 0; at < sText.size(); at = lead.next(sText, at)) {
        if (!sStart.empty())
            at = MultiByte::find(lead, sText, sStart, at);
        if (at == std::string::npos)
            break;
        vecPlaces.push_back(at + sStart.size());
    }
    return vecPlaces;
}

// Replaces from the first token, at `at`, on. False, and the text is as it was, when there
// would be no end or more than `most` bytes.
bool replaceTokens(std::string& sText, std::size_t at, const std::string& sToken, const std::string& sValue,
                   const MultiByte::CLeadBytes& lead, std::size_t most)
{
    constexpr int kMostRounds = 10'000'000;
    if (MultiByte::find(lead, sValue, sToken) != std::string::npos)
        return false;
    // The first token in a text is the one that ends first. What is yet to be read lies
    // backwards, so that a value is put before it at no cost.
    std::string sDone = sText.substr(0, at);
    std::string sRest(sText.rbegin(), sText.rend() - static_cast<std::ptrdiff_t>(at));
    for (int iRounds = 0; !sRest.empty();) {
        const char cNext = sRest.back();
        sRest.pop_back();
        sDone += cNext;
        if (cNext != sToken.back() || !endsWith(sDone, sToken))
            continue;
        const std::size_t begin = sDone.size() - sToken.size();
        if (lead.isOpen(std::string_view(sDone).substr(0, begin)))
            continue;
        if (++iRounds > kMostRounds || begin + sValue.size() + sRest.size() > most)
            return false;
        sDone.resize(begin);
        sRest.append(sValue.rbegin(), sValue.rend());
    }
    sText = std::move(sDone);
    return true;
}

}  // namespace

std::string expandKeywords(std::string sText, const KeywordMap& mapKeywords, std::string_view sStart,
                           std::string_view sEnd)
{
    const std::size_t most = sText.size() + 1024 * 1024;
    const MultiByte::CLeadBytes lead;
    std::vector<std::size_t> vecPlaces = findKeywords(sText, sStart, lead);
    for (const auto& [sKeyword, sValue] : mapKeywords) {
        if (vecPlaces.empty())
            break;
        const std::string_view sKey = sKeyword;
        const auto place = std::find_if(vecPlaces.begin(), vecPlaces.end(), [&](std::size_t at) {
            return (sKey.empty() || sText[at] == sKey[0]) && sText.compare(at, sKey.size(), sKey) == 0 &&
                   sText.compare(at + sKey.size(), sEnd.size(), sEnd) == 0;
        });
        if (place == vecPlaces.end())
            continue;
        const std::string sToken = std::string(sStart).append(sKey).append(sEnd);
        if (sToken.empty())
            continue;
        if (replaceTokens(sText, *place - sStart.size(), sToken, sValue, lead, most))
            vecPlaces = findKeywords(sText, sStart, lead);
        else
            TESK_TRACE("** %s left: its value brings it back, or too much text.\n", sToken.c_str());
    }
    return sText;
}

}  // namespace Tesk
