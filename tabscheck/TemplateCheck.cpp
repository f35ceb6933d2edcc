#include "tabscheck/TemplateCheck.h"

#include "library/expansion/DatePass.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Spelling.h"

#include <time.h>

#include <algorithm>
#include <string_view>

namespace tabscheck {

namespace {

constexpr const char* kDates[] = {"UPDATE_DATE", "UPDATE_DATE_UTC", "CURRENT_DATE", "CURRENT_DATE_UTC"};
constexpr const char* kTitleBlock = "HALVORAN";
constexpr std::string_view kMarks = " \t\"'()[]{}<>,;.\x93\x94\x84";  // that stand beside a keyword by mistake
constexpr std::size_t kLongestKeyword = 128;                          // a longer one is no keyword that somebody meant

bool isDate(std::string_view sName)
{
    return std::find(std::begin(kDates), std::end(kDates), sName) != std::end(kDates);
}

std::string_view wordAt(std::string_view sText)
{
    return sText.substr(0, sText.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_"));
}

class Checker {
public:
    Checker(const std::string& sTemplate, const Keywords& keywords) : m_template(sTemplate), m_keywords(keywords) {}

    std::vector<TemplateFault> check()
    {
        while ((m_at = m_template.find('%', m_at)) != m_template.npos)
            m_at += 1 + checkAt(std::string_view(m_template).substr(m_at + 1));
        return std::move(m_faults);
    }

private:
    // The token behind a delimiter; how much of it need not be looked at again.
    std::size_t checkAt(std::string_view sRest)
    {
        const std::string_view sToken = sRest.substr(0, sRest.find('%'));
        const bool closed = sToken.size() < sRest.size();
        const std::size_t whole = sToken.size() + 1;
        if (closed && knows(sToken)) {
            const bool empty = sToken.ends_with("HALVORAN_PROJECT_LABEL") && !m_keywords.emptyLabel.empty();
            return empty ? add(whole, "label-absent", {sToken, m_keywords.emptyLabel}) : whole;
        }
        if (const std::string_view sBefore = wordBefore(); knows(sBefore))
            return add(0, "token-unopened", {sBefore});
        if (const std::string sMeant = closed ? withoutMarks(sToken) : ""; !sMeant.empty())
            return add(whole, "token-unknown", {sToken, "; did you mean \"%" + sMeant + "%\"?"});
        const std::string sName(wordAt(sRest));
        const std::string_view sBehind = sRest.substr(sName.size());
        // What stands between two delimiters may be plain text, as in "100% of 50%".
        if (sName.empty() || (sName[0] >= '0' && sName[0] <= '9') || sToken.size() > kLongestKeyword)
            return 0;
        const auto lost = m_keywords.lost.find(std::string(sToken));
        if (closed && lost != m_keywords.lost.end())
            return add(whole, "token-elsewhere", {sToken, lost->second});
        const bool date = isDate(sName);
        const bool title = sName == kTitleBlock || sName == std::string("X_") + kTitleBlock;
        const bool doubled = sBehind.starts_with("::");
        if (!doubled && (title ? sToken != sName : date && (sBehind.starts_with(":") || sBehind.starts_with("|"))))
            return add(closed && !nextToken(sRest.substr(whole)) ? whole : sToken.size(), "token-colons",
                       {closed ? std::string(sToken) + "%" : sToken, date ? "format" : "key"});
        if (date && doubled)
            return checkDate(sName, sBehind.substr(2));
        if (closed && (sToken == sName || (doubled && !title && !knows(sName))))
            return date ? addDate(whole, sName, sToken, "%" + sName + "%")
                        : add(whole, "token-unknown", {sToken, suggest(sToken)});
        if (closed && title && doubled) {
            if (const std::string sKey(sRest.substr(0, sName.size() + 2 + wordAt(sBehind.substr(2)).size()));
                sKey.size() < sToken.size() && knows(sKey))
                return unclosed(sKey);
            if (const auto none = m_keywords.lost.find(kTitleBlock); none != m_keywords.lost.end())
                return add(whole, "token-elsewhere", {sToken, none->second});
            return m_keywords.mappingKnown ? add(whole, "token-unmapped", {sToken, suggest(sToken)}) : whole;
        }
        return date || title || knows(sName) ? unclosed(title ? std::string(sToken) : sName) : 0;
    }

    // The word that ends at the delimiter, which ends no token.
    std::string_view wordBefore() const
    {
        const std::string_view sText = std::string_view(m_template).substr(0, m_at);
        return sText.substr(sText.find_last_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ_") + 1);
    }

    // A token that ends nowhere, or at another's beginning.
    std::size_t unclosed(const std::string& sToken) { return add(sToken.size(), "token-open", {sToken}); }

    // A format has one character at least and ends at the first "%" behind it.
    std::size_t checkDate(const std::string& sName, std::string_view sRest)
    {
        const std::size_t end = sRest.find('%', 1);
        const std::string sFormat(sRest.substr(0, end));
        const std::string sToken = sName + "::" + sFormat;
        const bool none = sFormat[0] == '%';
        if (end == sRest.npos || nextToken(sRest.substr(end + 1)))
            return none ? addDate(sName.size() + 3, sName, sName + "::", "%" + sName + "::%") : unclosed(sToken);
        const std::string sShown = Tesk::formatTime(::_time64(nullptr), sFormat, false);
        const std::size_t size = none ? m_template.size() - m_at : sToken.size() + 1;
        const bool date = !none && !sShown.empty() && sFormat.find('|') != std::string::npos;
        return date ? size : addDate(size, sName, sToken, sShown);
    }

    std::size_t addDate(std::size_t size, const std::string& sName, std::string_view sToken, std::string_view sShown)
    {
        return add(size, "date-format", {sToken, sShown, sName});
    }

    // What follows the delimiter makes that another token's beginning.
    bool nextToken(std::string_view sRest) const
    {
        const std::string_view sToken = sRest.substr(0, sRest.find('%'));
        return sToken.size() < sRest.size() && knows(sToken);
    }

    bool knows(std::string_view sToken) const { return m_keywords.names.count(std::string(sToken)) != 0; }

    // The keyword that a token is without blanks and marks; empty when it is none, or none were there.
    std::string withoutMarks(std::string_view sToken) const
    {
        const std::size_t colons = sToken.find("::");
        const std::string sName(Tesk::MultiByte::trim(sToken.substr(0, colons), kMarks));
        const bool date = isDate(sName) && colons != sToken.npos;
        std::string sMeant = sName;
        if (colons != sToken.npos)
            sMeant.append("::").append(date ? sToken.substr(colons + 2)
                                            : Tesk::MultiByte::trim(sToken.substr(colons + 2), kMarks));
        return sMeant != sToken && (date || knows(sMeant)) ? sMeant : "";
    }

    // For the token, or else for what stands before its "::".
    std::string suggest(std::string_view sToken) const
    {
        std::vector<std::string> known(m_keywords.names.begin(), m_keywords.names.end());
        known.insert(known.end(), std::begin(kDates), std::end(kDates));
        const std::string sWhole = suggestion(sToken, known, "%");
        const std::size_t colons = std::min(sToken.find("::"), sToken.size());
        if (!sWhole.empty() || colons == sToken.size())
            return sWhole;
        for (std::string& sKnown : known)
            sKnown += sToken.substr(colons);
        return suggestion(sToken, known, "%");
    }

    // Gives back how much need not be looked at again.
    std::size_t add(std::size_t size, RuleName name, std::initializer_list<std::string_view> parts)
    {
        m_faults.push_back({name.rule(), m_at, wordsOf(*name.rule(), parts)});
        return size;
    }

    const std::string& m_template;
    const Keywords& m_keywords;
    std::size_t m_at = 0;
    std::vector<TemplateFault> m_faults;
};

}  // namespace

std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const Keywords& keywords)
{
    return Checker(sTemplate, keywords).check();
}

}  // namespace tabscheck
