#include "library/expansion/KeywordPass.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/MultiByte.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

namespace Tesk {

namespace {

constexpr std::size_t iMostGrowth = 16 * 1024 * 1024;
// Bytes looked at again, for one keyword, in search of tokens that its own value completes.
constexpr std::size_t iMostReentry = 1024 * 1024;

// A template under expansion. Keywords that do not occur when their turn comes change
// nothing, so only those that may occur wait for theirs: what a scan finds at the start,
// and later what a scan finds around each value put in. The scans go by bytes and may
// find too much in a double-byte code page, never too little.
class CKeywordPass {
public:
    CKeywordPass(std::string sText, const KeywordMap& mapKeywords, std::size_t iLongestKeyword, std::string_view sStart,
                 std::string_view sEnd)
        : m_sText(std::move(sText)),
          m_mapKeywords(mapKeywords),
          m_iLongestKeyword(iLongestKeyword),
          m_sStart(sStart),
          m_sEnd(sEnd),
          m_iMostText(m_sText.size() + iMostGrowth)
    {
    }

    std::string expand()
    {
        if (m_sStart.empty()) {
            for (const auto& [sKeyword, sValue] : m_mapKeywords)
                m_setPending.insert(sKeyword);
        } else {
            collect(0, m_sText.size());
        }
        while (!m_setPending.empty()) {
            m_sCurrent = *m_setPending.begin();
            m_setPending.erase(m_setPending.begin());
            m_bStarted = true;
            replace(std::string(m_sStart).append(m_sCurrent).append(m_sEnd), m_mapKeywords.find(m_sCurrent)->second);
        }
        return std::move(m_sText);
    }

private:
    // Beginning and end of a value put in.
    using Place = std::pair<std::size_t, std::size_t>;

    // Lets the keywords wait whose tokens begin from `from` up to `to` and whose turn is
    // still to come.
    void collect(std::size_t from, std::size_t to)
    {
        const std::string_view sText(m_sText);
        const std::string_view sStarts = sText.substr(0, to + m_sStart.size());
        for (std::size_t at = sStarts.find(m_sStart, from); at != std::string_view::npos;
             at = sStarts.find(m_sStart, at + 1)) {
            const std::string_view sRest = sText.substr(at + m_sStart.size(), m_iLongestKeyword + m_sEnd.size());
            for (std::size_t length = sRest.find(m_sEnd); length != std::string_view::npos;
                 length = sRest.find(m_sEnd, length + 1)) {
                const std::string_view sKeyword = sRest.substr(0, length);
                const auto found = m_mapKeywords.lower_bound(sKeyword);
                // A keyword may hold the delimiter: go on as long as one begins like this.
                if (found == m_mapKeywords.end() || !found->first.starts_with(sKeyword))
                    break;
                if (found->first == sKeyword && (!m_bStarted || sKeyword > m_sCurrent))
                    m_setPending.insert(found->first);
            }
        }
    }

    void replace(const std::string& sToken, const std::string& sValue)
    {
        if (MultiByte::find(m_lead, m_sText, sToken) == std::string::npos)
            return;
        const bool bOwnToken = MultiByte::find(m_lead, sValue, sToken) != std::string::npos;
        if (bOwnToken || !rewrite(sToken, sValue, false)) {
            TESK_TRACE("** \"%s\" brings its own token back: replaced once a place.\n", sToken.c_str());
            rewrite(sToken, sValue, true);
        }
        m_sText.swap(m_sOut);
        if (!m_sStart.empty())
            collectAroundPlaces(sToken);
    }

    // A token that was not there before touches a value or the seam of an empty one.
    void collectAroundPlaces(const std::string& sToken)
    {
        const std::size_t reach = sToken.size() - m_sCurrent.size() + m_iLongestKeyword;
        std::size_t scanned = 0;
        for (const auto& [begin, end] : m_vecPlaces) {
            const std::size_t from = std::max(scanned, begin - std::min(begin, reach));
            if (from <= end) {
                collect(from, end);
                scanned = end + 1;
            }
        }
    }

    // Writes the text with the token replaced to m_sOut, the values' places to m_vecPlaces.
    // With `bOnce` a token that a value completes is left; without, it is replaced, and
    // false tells that there seems to be no end to it.
    bool rewrite(const std::string& sToken, const std::string& sValue, bool bOnce)
    {
        m_sOut.clear();
        m_vecPlaces.clear();
        std::size_t budget = iMostReentry + 16 * m_sText.size();
        std::size_t taken = 0;
        std::size_t hit = MultiByte::find(m_lead, m_sText, sToken);
        while (hit != std::string::npos) {
            if (m_sOut.size() + (m_sText.size() - taken) + sValue.size() > m_iMostText + sToken.size()) {
                TESK_TRACE("** \"%s\" is left: the text has grown too long.\n", sToken.c_str());
                break;
            }
            m_sOut.append(m_sText, taken, hit - taken);
            taken = hit + sToken.size();
            m_vecPlaces.emplace_back(m_sOut.size(), m_sOut.size() + sValue.size());
            m_sOut += sValue;
            if (!bOnce && !reenter(sToken, sValue, taken, budget))
                return false;
            // Half a character at the value's end takes the next byte with it.
            const std::size_t from = taken + (m_lead.isOpen(m_sOut) ? 1 : 0);
            hit = MultiByte::find(m_lead, m_sText, sToken, std::min(from, m_sText.size()));
        }
        m_sOut.append(m_sText, taken);
        return true;
    }

    // Replaces what the value just written completes with the text before and behind it,
    // until nothing is left or `budget` is used up (false). All before is searched already,
    // so that looking there again would find nothing.
    bool reenter(const std::string& sToken, const std::string& sValue, std::size_t& taken, std::size_t& budget)
    {
        for (;;) {
            const std::size_t begin = m_vecPlaces.back().first;
            const std::size_t from = m_lead.boundaryBefore(m_sOut, begin - std::min(begin, sToken.size() - 1));
            std::string sProbe = m_sOut.substr(from);
            sProbe.append(m_sText, taken, sToken.size() - 1);
            const std::size_t hit = MultiByte::find(m_lead, sProbe, sToken);
            if (hit == std::string::npos)
                return true;
            if (sProbe.size() > budget)
                return false;
            budget -= sProbe.size();

            const std::size_t at = from + hit;
            const std::size_t end = at + sToken.size();
            if (end > m_sOut.size())
                taken += end - m_sOut.size();
            m_sOut.replace(at, std::min(sToken.size(), m_sOut.size() - at), sValue);
            while (!m_vecPlaces.empty() && m_vecPlaces.back().first >= at)
                m_vecPlaces.pop_back();
            // What is left of an older value behind this one counts as its own.
            m_vecPlaces.emplace_back(at, m_sOut.size());
        }
    }

    std::string m_sText;
    const KeywordMap& m_mapKeywords;
    const std::size_t m_iLongestKeyword;
    const std::string_view m_sStart;
    const std::string_view m_sEnd;
    const std::size_t m_iMostText;
    const MultiByte::CLeadBytes m_lead;

    std::string_view m_sCurrent;  // the keyword whose turn it is, once m_bStarted
    bool m_bStarted = false;
    std::set<std::string_view> m_setPending;
    std::string m_sOut;
    std::vector<Place> m_vecPlaces;
};

}  // namespace

std::string expandKeywords(std::string sText, const KeywordMap& mapKeywords, std::size_t iLongestKeyword,
                           std::string_view sStart, std::string_view sEnd)
{
    if (!sStart.empty() && sText.find(sStart) == std::string::npos)
        return sText;
    return CKeywordPass(std::move(sText), mapKeywords, iLongestKeyword, sStart, sEnd).expand();
}

}  // namespace Tesk
