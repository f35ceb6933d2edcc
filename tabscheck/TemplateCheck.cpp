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
        const std::string sToken(sRest.substr(0, sRest.find('%'))), sName(wordAt(sRest));
        const bool closed = sToken.size() < sRest.size(), date = isDate(sName);
        const bool doubled = sRest.substr(sName.size()).starts_with("::");
        const std::size_t whole = sToken.size() + 1;
        if (closed && knows(sToken)) {
            const bool empty = sToken.ends_with("HALVORAN_PROJECT_LABEL") && !m_keywords.emptyLabel.empty();
            return empty ? add(whole, "label-absent", {sToken, m_keywords.emptyLabel}) : whole;
        }
        if (const std::string_view sBefore = wordBefore(); knows(sBefore))
            return add(0, "token-unopened", {sBefore});
        if (date && doubled)
            return checkDate(sName, sRest.substr(sName.size() + 2));
        const std::string sMeant = meant(sToken);
        const std::size_t colons = sMeant.find("::");
        if (closed && sMeant != sToken &&
            (knows(sMeant) || (colons != sMeant.npos && isDate(sMeant.substr(0, colons)))))
            return add(nextToken(sRest.substr(whole)) ? sToken.size() : whole, "token-unknown",
                       {sToken, "; did you mean \"%" + sMeant + "%\"?"});
        // What stands between two delimiters may be plain text, as in "100% of 50%".
        if (sName.empty() || (sName[0] >= '0' && sName[0] <= '9') || sToken.size() > kLongestKeyword)
            return 0;
        const bool title = sName == kTitleBlock || sName == std::string("X_") + kTitleBlock;
        const bool keyed = title && colons != sMeant.npos;
        if (keyed) {
            const std::string sFirst = sName + "::" + std::string(wordAt(sMeant.substr(colons + 2)));
            if (sFirst != sMeant && knows(sFirst))
                return unclosed(sFirst);
        }
        for (const std::string& sLost : {sToken, keyed ? std::string(kTitleBlock) : sToken})
            if (const auto lost = m_keywords.lost.find(sLost); closed && lost != m_keywords.lost.end())
                return add(whole, "token-elsewhere", {sToken, lost->second});
        if (closed && keyed)
            return m_keywords.mappingKnown ? add(whole, "token-unmapped", {sToken, suggest(sMeant)}) : whole;
        if (closed && date && sToken == sName)
            return add(whole, "date-format", {sToken, "%" + sName + "%", sName});
        if (closed && (sToken == sName || (doubled && !knows(sName))))
            return add(whole, "token-unknown", {sToken, suggest(sToken)});
        return date || title || knows(sName) ? unclosed(title ? sToken : sName) : 0;
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
            return none ? add(sName.size() + 3, "date-format", {sName + "::", "%" + sName + "::%", sName})
                        : unclosed(sToken);
        const std::string sShown = Tesk::formatTime(::_time64(nullptr), sFormat, false);
        const std::size_t size = none ? m_template.size() - m_at : sToken.size() + 1;
        const bool date = !none && !sShown.empty() && sFormat.find('|') != std::string::npos;
        return date ? size : add(size, "date-format", {sToken, sShown, sName});
    }

    // What follows the delimiter makes that another token's beginning.
    bool nextToken(std::string_view sRest) const
    {
        const std::string_view sToken = sRest.substr(0, sRest.find('%'));
        return sToken.size() < sRest.size() && knows(sToken);
    }

    bool knows(std::string_view sToken) const { return m_keywords.names.count(std::string(sToken)) != 0; }

    // A token as it is to be written: no blanks and marks at its ends, "::" behind its name.
    static std::string meant(std::string_view sToken)
    {
        sToken.remove_prefix(std::min(sToken.find_first_not_of(kMarks), sToken.size()));
        const std::string sName(wordAt(sToken));
        std::string_view sRest = sToken.substr(sName.size());
        sRest.remove_prefix(std::min(sRest.find_first_not_of(kMarks), sRest.size()));
        if (isDate(sName) && !sRest.starts_with(":") && !sRest.starts_with("|"))
            return sRest.empty() ? sName : std::string(sToken);
        sRest.remove_prefix(std::min(sRest.find_first_not_of(':'), sRest.size()));
        if (!isDate(sName))
            sRest = Tesk::MultiByte::trim(sRest, kMarks);
        return sRest.empty() ? sName : sName + "::" + std::string(sRest);
    }

    std::string suggest(std::string_view sToken) const
    {
        std::vector<std::string> known(m_keywords.names.begin(), m_keywords.names.end());
        for (const char* sDate : kDates)
            known.push_back(std::string(sDate).append(sToken.substr(std::min(sToken.find("::"), sToken.size()))));
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
