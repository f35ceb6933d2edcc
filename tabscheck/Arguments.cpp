#include "tabscheck/Arguments.h"

#include "library/text/MultiByte.h"
#include "settings/TextKeys.h"
#include "tabscheck/Strays.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;

constexpr const char* kUsage = "Shows which file gives the document tabs their texts, and what is wrong where.\r\n"
                               "\r\n"
                               "  tabscheck [OPTION...] PATH...\r\n"
                               "\r\n"
                               "PATH      a drawing, which need not exist, or a folder: all drawings below it;\r\n"
                               "          * and ? in its name stand for all that fit. Or a settings file\r\n"
                               "--root FOLDER\r\n"
                               "          the application root, where that is not this program's folder\r\n"
                               "--release R, --product P\r\n"
                               "          the host that is asked for, as in MDITabs16.0.ini and\r\n"
                               "          MDITabsAutoCAD_16.0.ini (16.0 and AutoCAD)\r\n"
                               "--problems, --overrides, --get KEY\r\n"
                               "          the problems alone; the texts that override another; the text of a key\r\n"
                               "--json    for programs, in UTF-8\r\n"
                               "--accept NAME[:FILE]\r\n"
                               "          not this problem, or not in this file. In a file, the line above it\r\n"
                               "          may be: ; tabscheck: accept NAME (# in project settings)\r\n"
                               "--strict  warnings count as problems\r\n"
                               "--version\r\n"
                               "\r\n"
                               "Exit code: 0 no problems, 1 problems, 2 something could not be checked.\r\n";

[[noreturn]] void refuse(const std::string& sWhy) { throw std::invalid_argument(sWhy); }

void checkName(const std::string& sWhat, const std::string& sName, std::string_view sNames)
{
    if (!isOneOf(sNames, sName))
        refuse(("no host has the " + sWhat + " " + quoted(sName) + ": there are ").append(sNames));
}

void takeAccepted(Arguments& arguments, const std::string& sValue)
{
    const std::size_t colon = std::min(sValue.find(':'), sValue.size());
    const std::string sName = sValue.substr(0, colon);
    if (std::none_of(std::begin(kRules), std::end(kRules), [&](const Rule& rule) { return rule.name == sName; }))
        refuse(quoted(sName) + " is the name of no problem");
    arguments.accepted.insert({sName, sValue.substr(std::min(colon + 1, sValue.size()))});
}

void takeKey(Arguments& arguments, const std::string& sValue)
{
    if (std::none_of(std::begin(kTextKeys), std::end(kTextKeys),
                     [&](const TextKey& key) { return equalNoCase(key.sName, sValue); }))
        refuse(quoted(sValue) + " is no key that the strip reads");
    arguments.show = Show::Key;
    arguments.key = sValue;
}

constexpr struct Option {
    std::string_view name;
    bool hasValue;
    void (*take)(Arguments&, const std::string& sValue);
} kOptions[] = {
    {"--help", false, [](Arguments& arguments, const std::string&) { arguments.help = true; }},
    {"--version", false, [](Arguments& arguments, const std::string&) { arguments.version = true; }},
    {"--json", false, [](Arguments& arguments, const std::string&) { arguments.json = true; }},
    {"--strict", false, [](Arguments& arguments, const std::string&) { arguments.strict = true; }},
    {"--problems", false, [](Arguments& arguments, const std::string&) { arguments.show = Show::Problems; }},
    {"--overrides", false, [](Arguments& arguments, const std::string&) { arguments.show = Show::Overrides; }},
    {"--get", true, takeKey},
    {"--accept", true, takeAccepted},
    {"--root", true, [](Arguments& arguments, const std::string& sValue) { arguments.asked.root = sValue; }},
    {"--release", true, [](Arguments& arguments, const std::string& sValue) { arguments.asked.release = sValue; }},
    {"--product", true, [](Arguments& arguments, const std::string& sValue) { arguments.asked.product = sValue; }},
};

}  // namespace

std::string usage() { return kUsage; }

bool Arguments::accepts(const Problem& problem) const
{
    return std::any_of(accepted.begin(), accepted.end(), [&problem](const auto& one) {
        const std::string sEnd = one.second.empty() ? "" : "\\" + one.second, sPath = "\\" + problem.file;
        const std::size_t longer = sPath.size() - std::min(sPath.size(), sEnd.size());
        return one.first == problem.rule->name && equalNoCase(sPath.substr(longer), sEnd);
    });
}

Arguments parse(int count, char** words)
{
    Arguments arguments;
    bool options = true;
    for (int i = 1; i < count; ++i) {
        const std::string sWord = words[i] == std::string("/?") ? "--help" : words[i];
        const auto option = std::find_if(std::begin(kOptions), std::end(kOptions),
                                         [&sWord](const Option& one) { return one.name == sWord; });
        const bool known = option != std::end(kOptions);
        if (sWord.find('"') != std::string::npos)
            refuse(sWord + ": a \\ before a quotation mark takes that in: leave it out");
        if (!options || (!known && !sWord.starts_with("--")))
            arguments.asked.paths.push_back(sWord);
        else if (sWord == "--")
            options = false;
        else if (!known || (option->hasValue && i + 1 == count))
            refuse(quoted(sWord) + " is unknown or lacks its value");
        else
            option->take(arguments, option->hasValue ? words[++i] : "");
    }
    checkName("release", arguments.asked.release, kReleases);
    checkName("product", arguments.asked.product, kProducts);
    if (arguments.json && arguments.show != Show::All)
        refuse("--json has all in it: without --problems, --overrides and --get");
    if (arguments.asked.paths.empty() && !arguments.help && !arguments.version)
        refuse(std::string("which drawing or folder?\r\n\r\n") + kUsage);
    return arguments;
}

}  // namespace tabscheck
