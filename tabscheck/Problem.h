#pragma once

// What may be wrong, in one table: a name, which a person accepts it by, how bad it is, and
// the words, in which each "{}" stands for what was found.

#include <algorithm>
#include <compare>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

enum class Severity { Warning, Error, Unchecked };  // the last: something was not looked into

struct Rule {
    std::string_view name;
    Severity severity;
    std::string_view text;
};

inline constexpr Rule kRules[] = {
    // Any file.
    {"file-closed", Severity::Unchecked, "the strip cannot open it: {}"},
    {"file-unread", Severity::Unchecked, "{}"},
    {"never-read", Severity::Warning, "there, but never read{}"},
    {"encoding", Severity::Error, "the file is in {}, which is not read: save it as {}"},
    {"utf-8", Severity::Warning, "UTF-8 without a mark, read as ANSI: {} becomes {}; save the file as ANSI"},
    {"letter-lost", Severity::Warning, "a letter that the Windows code page lacks: it becomes {}"},
    {"dos-letter", Severity::Warning, "{} was a letter of the DOS code page; save the file as ANSI"},
    {"zero-byte", Severity::Warning, "a zero byte: Windows shows a text only up to it; is this a text file?"},
    {"lone-return", Severity::Warning, "a carriage return alone ends no line: save the file with those of Windows"},
    {"text-end", Severity::Warning, "a Ctrl-Z (1A) ends the text here: what stands behind it is not read"},
    {"merge-mark", Severity::Error, "a mark that a merge of two versions left"},
    {"typographic", Severity::Warning, "{} are letters here and no quotation marks, which are straight"},
    // MDITabs.ini
    {"line-damaged", Severity::Error, "no \"=\" in this line: the strip drops this whole copy of the file"},
    {"header-open", Severity::Warning, "this header does not end in \"]\": the keys below it belong to {}"},
    {"section", Severity::Error, "section [{}] swallows the keys behind it: {}"},
    {"key-unknown", Severity::Warning, "unknown key \"{}\": the strip does not read it{}"},
    {"key-twice", Severity::Warning, "{} stands in line {}, too: this one counts"},
    {"value-equals", Severity::Warning, "the value begins with \"{}\": one \"=\" is enough"},
    {"value-coded", Severity::Warning, "\"={}\" is how a mail program writes \"=\": the rest is shown"},
    {"value-remark", Severity::Warning, "\"{}\" is part of the value: a remark has its own line"},
    {"quotes-shown", Severity::Warning, "the quotes of {} are shown: the strip drops those of its markers alone"},
    {"address", Severity::Warning, "\"{}\" is no address that can be opened: {}"},
    {"no-template", Severity::Warning, "{} stays as it is: this key is no template; TooltipText and SameNameText are"},
    {"caption-absent", Severity::Error, "no text for {}: the menu has blank items{}"},
    {"text-absent", Severity::Warning, "no text for {}: nothing is shown there{}"},
    {"key-alone", Severity::Warning, "{} is for the box that PopupHelpText opens, and that has no text"},
    // Templates
    {"token-unknown", Severity::Warning, "%{}% stays as it is written: there is no such keyword{}"},
    {"token-unmapped", Severity::Warning, "%{}% stays as it is written: no mapping of the title block defines it{}"},
    {"token-elsewhere", Severity::Warning, "%{}% stays as it is written: {}"},
    {"token-open", Severity::Warning, "%{} stays as it is written: its closing \"%\" is missing"},
    {"token-unopened", Severity::Warning, "{}% stays as it is written: its opening \"%\" is missing"},
    {"date-format", Severity::Error, "%{}% shows \"{}\": a date has \"|\" before each letter, as in %{}::|Y-|m-|d%"},
    {"label-absent", Severity::Warning, "%{}% shows nothing: {} has no label"},
    // ProjectSettings.txt and the two of its form
    {"keyword-unknown", Severity::Warning, "unknown keyword \"{}\": skipped with its block{}"},
    {"block-open", Severity::Error, "the block {} goes on to {}, and what it takes in is lost: {}"},
    {"remark-block", Severity::Error, "\";\" begins no remark here, \"#\" and \"//\" do: it takes the block behind it"},
    {"remark-line", Severity::Warning, "\";\" begins no remark here, \"#\" and \"//\" do: the line counts"},
    {"label-twice", Severity::Warning, "the label has more than one line: this one counts"},
    {"border-fields", Severity::Error,
     "this border is ignored: BORDER, a blank and 2, 5 or 6 fields in quotes are read"},
    {"border-name", Severity::Warning, "no block can be named \"{}\": a block's name has no path and no blank ends"},
    {"border-twice", Severity::Warning, "\"{}\" stands in line {}, too: that one counts"},
    {"border-absent", Severity::Warning, "none of this project's borders is in any of its {}"},
    {"mapping-twice", Severity::Warning, "{} stands in line {}, too: this one counts"},
    {"tag-blank", Severity::Warning, "no attribute has the tag \"{}\": a tag has no blank"},
    {"tag-absent", Severity::Warning, "the drawing's border \"{}\" has no attribute \"{}\": %HALVORAN::{}% is empty{}"},
    // The registry
    {"domain-absent", Severity::Unchecked, "the value \"Domain Settings\" names \"{}\", which {}"},
    {"domain-deep", Severity::Warning, "the domain settings folder is one level up: \"{}\""},
    {"domain-stamp", Severity::Warning, "the value \"Domain Settings\" reaches nobody: {}"},
    {"load-entry", Severity::Warning, "{}"},
    // Drawings
    {"drawing-damaged", Severity::Error, "the drawing cannot be read: {}"},
};

// One of the table's; a name that is not in it does not compile.
class RuleName {
public:
    consteval RuleName(const char* sName) : m_rule(nullptr)  // NOLINT(google-explicit-constructor)
    {
        for (const Rule& rule : kRules)
            if (rule.name == sName)
                m_rule = &rule;
        if (m_rule == nullptr)
            throw "no such rule";
    }
    const Rule* rule() const { return m_rule; }

private:
    const Rule* m_rule;
};

struct Problem {
    std::string file;     // or a registry key
    unsigned line = 0;    // from 1; 0 for the file as a whole
    unsigned column = 0;  // in bytes from 1
    const Rule* rule = nullptr;
    std::string text;
    std::string source;  // the line itself

    bool error() const { return rule->severity != Severity::Warning; }
    bool unchecked() const { return rule->severity == Severity::Unchecked; }
    auto operator<=>(const Problem&) const = default;
};

// The rule's text with its parts in their places.
inline std::string wordsOf(const Rule& rule, std::initializer_list<std::string_view> parts)
{
    std::string sText;
    std::string_view sRest = rule.text;
    for (const std::string_view sPart : parts) {
        const std::size_t at = sRest.find("{}");
        if (at == sRest.npos)
            break;
        sText.append(sRest.substr(0, at)).append(sPart);
        sRest.remove_prefix(at + 2);
    }
    return sText.append(sRest);
}

inline std::string quoted(std::string_view sText) { return "\"" + std::string(sText) + "\""; }

inline std::string counted(std::size_t count, const std::string& sThing)
{
    return std::to_string(count) + " " + sThing + (count == 1 ? "" : "s");
}

inline bool anyError(const std::vector<Problem>& problems)
{
    return std::any_of(problems.begin(), problems.end(), [](const Problem& problem) { return problem.error(); });
}

// Of a file as a whole.
inline Problem problemOf(RuleName name, const std::string& sFile, std::initializer_list<std::string_view> parts = {})
{
    return {sFile, 0, 0, name.rule(), wordsOf(*name.rule(), parts), {}};
}

}  // namespace tabscheck
