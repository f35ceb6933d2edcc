#include "library/text/Regex.h"

#include "tabscheck/TemplateCheck.h"

#include "library/expansion/DatePass.h"
#include "tabscheck/Spelling.h"

#include <time.h>

#include <algorithm>
#include <string_view>

namespace tabscheck {

namespace {

constexpr const char* kDates[] = {"UPDATE_DATE", "UPDATE_DATE_UTC", "CURRENT_DATE", "CURRENT_DATE_UTC"};
constexpr const char* kTitleBlock = "HALVORAN";
constexpr std::size_t kLongestKeyword = 128;  // a longer one is no keyword that somebody meant

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
        std::size_t at = 0;
        while ((at = m_template.find('%', at)) != m_template.npos)
            at += 1 + checkAt(at, std::string_view(m_template).substr(at + 1));
        return std::move(m_faults);
    }

private:
    // The token behind a delimiter; how much of it need not be looked at again.
    std::size_t checkAt(std::size_t at, std::string_view sRest)
    {
        const std::string_view sToken = sRest.substr(0, sRest.find('%'));
        const bool closed = sToken.size() < sRest.size();
        if (closed && knows(sToken))
            return sToken.size() + 1;
        const std::string sName(wordAt(sRest));
        const std::string_view sBehind = sRest.substr(sName.size());
        // What stands between two delimiters may be plain text, as in "100% of 50%".
        if (sName.empty() || (sName[0] >= '0' && sName[0] <= '9') || sToken.size() > kLongestKeyword)
            return 0;
        const bool date = isDate(sName);
        const bool title = sName == kTitleBlock || sName == std::string("X_") + kTitleBlock;
        const bool doubled = sBehind.starts_with("::");
        if (!doubled && (title ? sToken != sName : date && (sBehind.starts_with(":") || sBehind.starts_with("|")))) {
            add(false, at, stays(sToken, closed) + "; \"::\" stands between name and " + (date ? "format" : "key"));
            return sToken.size();
        }
        if (date && doubled)
            return checkDate(at, sName, sBehind.substr(2));
        if (closed && (sToken == sName || (doubled && !title && !knows(sName)))) {
            add(false, at,
                stays(sToken, true) + (date ? needsFormat(sName) : ": there is no such keyword" + suggest(sToken)));
            return sToken.size() + 1;
        }
        if (closed && title && doubled) {
            if (const std::string sKey(sRest.substr(0, sName.size() + 2 + wordAt(sBehind.substr(2)).size()));
                sKey.size() < sToken.size() && m_keywords.names.count(sKey) != 0)
                return unclosed(at, sKey);
            if (m_keywords.mappingKnown)
                add(false, at, stays(sToken, true) + ": no mapping of the title block defines it" + suggest(sToken));
            return sToken.size() + 1;
        }
        return date || title || knows(sName) ? unclosed(at, title ? std::string(sToken) : sName) : 0;
    }

    // A token that ends nowhere, or at another's beginning.
    std::size_t unclosed(std::size_t at, const std::string& sToken)
    {
        add(false, at, stays(sToken, false) + ": its closing \"%\" is missing");
        return sToken.size();
    }

    // A format has one character at least and ends at the first "%" behind it.
    std::size_t checkDate(std::size_t at, const std::string& sName, std::string_view sRest)
    {
        const std::size_t end = sRest.find('%', 1);
        const std::string sFormat(sRest.substr(0, end));
        const std::size_t size = sName.size() + 2 + sFormat.size();
        if (end == sRest.npos || nextToken(sRest.substr(end + 1))) {
            if (!sRest.starts_with("%"))
                return unclosed(at, sName + "::" + sFormat);
            add(false, at, stays(sName + "::", true) + needsFormat(sName));
            return sName.size() + 3;
        }
        const std::string sShown = Tesk::formatTime(::_time64(nullptr), sFormat, false);
        const std::string sToken = "%" + sName + "::" + sFormat + "%";
        if (sFormat[0] == '%') {
            add(true, at,
                sToken + " shows \"" + sShown +
                    "\" and what follows as it is written: \"%\" ends a format; write \"|\" "
                    "for it, as in |d.|m.|Y");
            return m_template.size() - at;
        }
        if (sShown.empty())
            add(true, at, sToken + " shows nothing: Windows makes no date of the format \"" + sFormat + "\"");
        else if (sFormat.find('|') == std::string::npos)
            add(false, at,
                sToken + " shows \"" + sShown + "\" and no date: \"|\" stands before each letter, as in |d.|m.|Y");
        return size + 1;
    }

    // What follows the delimiter makes that another token's beginning.
    bool nextToken(std::string_view sRest) const
    {
        const std::string_view sToken = sRest.substr(0, sRest.find('%'));
        return sToken.size() < sRest.size() && knows(sToken);
    }

    bool knows(std::string_view sToken) const { return m_keywords.names.count(std::string(sToken)) != 0; }

    static std::string stays(std::string_view sToken, bool closed)
    {
        return "%" + std::string(sToken) + (closed ? "%" : "") + " stays as it is written";
    }

    static std::string needsFormat(const std::string& sName)
    {
        return ": a date needs a format, as in %" + sName + "::|Y-|m-|d%";
    }

    // For the token, or else for what stands before its "::".
    std::string suggest(std::string_view sToken) const
    {
        std::vector<std::string> known(m_keywords.names.begin(), m_keywords.names.end());
        known.insert(known.end(), std::begin(kDates), std::end(kDates));
        const std::string sWhole = suggestion(sToken, known);
        return sWhole.empty() ? suggestion(sToken.substr(0, sToken.find("::")), known) : sWhole;
    }

    void add(bool error, std::size_t at, std::string sText) { m_faults.push_back({error, at, std::move(sText)}); }

    const std::string& m_template;
    const Keywords& m_keywords;
    std::vector<TemplateFault> m_faults;
};

}  // namespace

std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const Keywords& keywords)
{
    return Checker(sTemplate, keywords).check();
}

std::string findToken(const std::string& sText)
{
    static const boost::regex sToken("%[A-Za-z][A-Za-z0-9_]{2,}(::?[^%]*)?%");
    boost::smatch found;
    return boost::regex_search(sText, found, sToken) ? found.str() : "";
}

}  // namespace tabscheck
