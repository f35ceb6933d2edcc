#include "tabscheck/TemplateCheck.h"

#include "library/expansion/DatePass.h"
#include "tabscheck/Spelling.h"

#include <time.h>

#include <algorithm>
#include <string_view>

namespace tabscheck {

namespace {

constexpr const char* kDates[] = {"UPDATE_DATE", "UPDATE_DATE_UTC", "CURRENT_DATE", "CURRENT_DATE_UTC"};
constexpr std::string_view kFormatMark = "::";
constexpr std::size_t kLongestKeyword = 128;  // a longer one is no keyword that somebody meant

bool isDate(std::string_view sName)
{
    return std::find(std::begin(kDates), std::end(kDates), sName) != std::end(kDates);
}

bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; }

// What stands between two delimiters may be plain text, as in "100% of 50%": a keyword
// begins with a letter and has no blank before its "::".
bool looksLikeKeyword(std::string_view sToken)
{
    const std::string_view sName = sToken.substr(0, sToken.find(kFormatMark));
    return !sName.empty() && sToken.size() <= kLongestKeyword && isLetter(sName[0]) &&
           std::all_of(sName.begin(), sName.end(), [](char c) { return isLetter(c) || (c >= '0' && c <= '9'); });
}

class Checker {
public:
    Checker(const std::string& sTemplate, const std::set<std::string>& keywords)
        : m_template(sTemplate), m_keywords(keywords)
    {
    }

    std::vector<TemplateFault> check()
    {
        std::size_t at = m_template.find('%');
        while (at != std::string::npos) {
            const std::size_t end = m_template.find('%', at + 1);
            if (end == std::string::npos)
                break;
            const std::string sToken = m_template.substr(at + 1, end - at - 1);
            // The closing delimiter of what is no token may open one.
            at = m_keywords.count(sToken) != 0 || checkToken(at, sToken) ? m_template.find('%', end + 1) : end;
        }
        return std::move(m_faults);
    }

private:
    // True when the text between the delimiters is meant as a token.
    bool checkToken(std::size_t at, const std::string& sToken)
    {
        const std::size_t mark = sToken.find(kFormatMark);
        const std::string sName = sToken.substr(0, mark);
        if (isDate(sName)) {
            const std::string sFormat = mark == std::string::npos ? "" : sToken.substr(mark + kFormatMark.size());
            checkDate(at, sToken, sFormat);
            return true;
        }
        if (!looksLikeKeyword(sToken))
            return false;
        std::vector<std::string> known(m_keywords.begin(), m_keywords.end());
        known.insert(known.end(), std::begin(kDates), std::end(kDates));
        const bool mapped = sName == "HALVORAN" && mark != std::string::npos;
        m_faults.push_back({false, at,
                            "%" + sToken + "% stays as it is written: " +
                                (mapped ? "no mapping of the title block defines it" : "there is no such keyword") +
                                suggestion(sToken, known)});
        return true;
    }

    void checkDate(std::size_t at, const std::string& sToken, const std::string& sFormat)
    {
        if (sFormat.empty())
            m_faults.push_back({false, at,
                                "%" + sToken + "% stays as it is written: a date needs a format, as in %" +
                                    sToken.substr(0, sToken.find(kFormatMark)) + "::|Y-|m-|d%"});
        else if (Tesk::formatTime(::_time64(nullptr), sFormat, false).empty())
            m_faults.push_back(
                {true, at, "%" + sToken + "% shows nothing: Windows makes no date of the format \"" + sFormat + "\""});
    }

    const std::string& m_template;
    const std::set<std::string>& m_keywords;
    std::vector<TemplateFault> m_faults;
};

}  // namespace

std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const std::set<std::string>& keywords)
{
    return Checker(sTemplate, keywords).check();
}

}  // namespace tabscheck
