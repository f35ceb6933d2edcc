#include "tabscheck/Arguments.h"

#include "library/text/MultiByte.h"
#include "settings/TextKeys.h"
#include "tabscheck/Strays.h"

#include <algorithm>
#include <iterator>
#include <map>

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

// Why no host is so called; empty when one is.
std::string checkName(const char* sWhat, const std::string& sName, std::span<const std::string_view> names)
{
    if (isOneOf(names, sName))
        return {};
    std::string sText = std::string("no host has the ") + sWhat + " " + quoted(sName) + ": there are";
    for (const std::string_view sOne : names)
        sText.append(sOne == names.front() ? " " : ", ").append(sOne);
    return sText;
}

}  // namespace

std::string usage() { return kUsage; }

bool Arguments::accepts(const Problem& problem) const
{
    return std::any_of(accepted.begin(), accepted.end(), [&problem](const auto& one) {
        const auto& [sName, sFile] = one;
        const std::size_t longer = problem.file.size() - std::min(problem.file.size(), sFile.size());
        return sName == problem.rule->name && equalNoCase(problem.file.substr(longer), sFile) &&
               (sFile.empty() || longer == 0 || problem.file[longer - 1] == '\\');
    });
}

Arguments parse(int count, char** words)
{
    Arguments arguments;
    const std::map<std::string, bool*> flags = {{"/?", &arguments.help},
                                                {"--help", &arguments.help},
                                                {"--version", &arguments.version},
                                                {"--json", &arguments.json},
                                                {"--strict", &arguments.strict}};
    std::string sAccept;
    const std::map<std::string, std::string*> values = {{"--root", &arguments.asked.root},
                                                        {"--release", &arguments.asked.release},
                                                        {"--product", &arguments.asked.product},
                                                        {"--get", &arguments.key},
                                                        {"--accept", &sAccept}};
    // These exclude each other.
    const std::map<std::string, Show> shows = {
        {"--problems", Show::Problems}, {"--overrides", Show::Overrides}, {"--get", Show::Key}};
    bool options = true;
    for (int i = 1; i < count; ++i) {
        const std::string sWord = words[i];
        const auto flag = flags.find(sWord);
        const auto value = values.find(sWord);
        const auto show = shows.find(sWord);
        if (options && show != shows.end()) {
            if (arguments.show != Show::All)
                arguments.error = "one of --problems, --overrides and --get";
            arguments.show = show->second;
        }
        if (sWord.find('"') != std::string::npos)
            arguments.error = sWord + ": a \\ before a quotation mark takes that in: leave it out";
        if (options && flag != flags.end())
            *flag->second = true;
        else if (!options || sWord.substr(0, 2) != "--")
            arguments.asked.paths.push_back(sWord);
        else if (sWord == "--")
            options = false;
        else if (value != values.end() && i + 1 < count)
            *value->second = words[++i];
        else if (show == shows.end() || value != values.end())
            arguments.error = "\"" + sWord + "\" is unknown or lacks its value";
        if (sAccept.empty())
            continue;
        const std::size_t colon = std::min(sAccept.find(':'), sAccept.size());
        const std::string sName = sAccept.substr(0, colon);
        if (std::none_of(std::begin(kRules), std::end(kRules), [&](const Rule& rule) { return rule.name == sName; }))
            arguments.error = "\"" + sName + "\" is the name of no problem";
        arguments.accepted.insert({sName, sAccept.substr(std::min(colon + 1, sAccept.size()))});
        sAccept.clear();
    }
    const bool known = std::any_of(std::begin(kTextKeys), std::end(kTextKeys),
                                   [&](const TextKey& key) { return equalNoCase(key.sName, arguments.key); });
    if (arguments.error.empty())
        arguments.error = checkName("release", arguments.asked.release, kReleases);
    if (arguments.error.empty())
        arguments.error = checkName("product", arguments.asked.product, kProducts);
    if (arguments.show == Show::Key && !known && arguments.error.empty())
        arguments.error = "\"" + arguments.key + "\" is no key that the strip reads";
    if (arguments.asked.paths.empty() && arguments.error.empty())
        arguments.error = std::string("which drawing or folder?\r\n\r\n") + kUsage;
    if (arguments.json && arguments.show != Show::All)
        arguments.error = "--json has all in it: without --problems, --overrides and --get";
    return arguments;
}

}  // namespace tabscheck
