#include "library/files/PathParts.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <algorithm>
#include <deque>
#include <map>
#include <set>
#include <utility>

namespace tabscheck {

namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kShownAround = 60;   // of a long line, before and behind the caret
constexpr std::size_t kShownOfText = 180;  // at either end

std::string padded(std::string_view sText, std::size_t width)
{
    return std::string(sText) + std::string(width - std::min(width, sText.size()) + 1, ' ');
}

// One line, whatever is in the text.
std::string visible(std::string_view sText)
{
    std::string sVisible;
    for (const char c : sText)
        sVisible += c == '\n' ? std::string("\\n") : std::string(1, c == '\r' ? ' ' : c);
    return sVisible;
}

std::string at(const std::string& sFile, unsigned line) { return sFile + ":" + std::to_string(line); }

// By their names, or many by their number and the folder of the first.
std::string nameOf(const std::vector<std::string>& drawings)
{
    const std::string sFolder = Tesk::CPathParts(drawings.front()).parent();
    if (drawings.size() > kMostNames)
        return counted(drawings.size(), "drawing") +
               (Tesk::CPathParts(drawings.back()).parent() == sFolder ? " in " + sFolder : ", first in " + sFolder);
    std::string sNames;
    for (const std::string& sDrawing : drawings)
        sNames += (sNames.empty() ? "" : ", ") + Tesk::CPathParts(sDrawing).fileName();
    return sNames;
}

// Below the problem its line with a caret; of a long one the part around it.
std::string excerpt(const Problem& problem)
{
    if (problem.column == 0 || problem.source.empty())
        return {};
    const std::size_t position = std::min<std::size_t>(problem.column - 1, problem.source.size());
    const std::size_t from = position > kShownAround ? position - kShownAround : 0;
    std::string sLine = problem.source.substr(from, 2 * kShownAround);
    std::replace_if(
        sLine.begin(), sLine.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return "\r\n    " + sLine + "\r\n    " + std::string(position - from, ' ') + "^";
}

std::string ruleText(const DrawingReport& report)
{
    const std::string& sRule = report.tooltip.rule;
    if (sRule.empty())
        return "none, as it cannot be read";
    if (report.contents != kRead)
        return "by TooltipText, if it holds its title block; its contents are not read: " + report.contents;
    if (sRule == "template")
        return "by TooltipText, as it holds its title block";
    return sRule == "title" ? "its Title property, as it holds no title block"
                            : "by DefaultTooltipText, as it holds neither title block nor Title property";
}

// The element that fits, or else a fresh one.
template <class List, class Fits>
typename List::reference findOrAdd(List& all, Fits fits)
{
    const auto found = std::find_if(all.begin(), all.end(), fits);
    return found != all.end() ? *found : all.emplace_back();
}

class TextReport : public Reports {
public:
    TextReport(Console& console, Show show, std::string sKey) : m_console(console), m_show(show), m_key(std::move(sKey))
    {
    }

    void add(DrawingReport report) override
    {
        ++m_count;
        for (const Problem& problem : std::set<Problem>(report.problems.begin(), report.problems.end()))
            m_problems[problem].push_back(report.path);
        if (m_show == Show::Problems)
            return;
        Group& group = groupOf(report);
        group.drawings.push_back(report.path);
        const auto same = [&report](const Row& row) {
            return row.first.tooltip.rule == report.tooltip.rule && row.first.contents == report.contents &&
                   row.first.project == report.project;
        };
        auto row = std::find_if(group.rows.begin(), group.rows.end(), same);
        if (row == group.rows.end())
            row = group.rows.insert(row, {std::move(report), {}});
        row->drawings.push_back(group.drawings.back());
    }

    void finish(const std::vector<FileReport>& files, const std::vector<Unchecked>& unchecked) override
    {
        for (const FileReport& file : files)
            for (const Problem& problem : file.problems)
                m_problems[problem];
        const bool whole = m_show == Show::All;
        for (const Block& block : m_blocks) {
            if (whole)
                printSearched(block);
            for (const Group& group : block)
                printGroup(group, block.front());
            if (whole)
                print("");
        }
        if (!whole && m_show != Show::Problems)
            return;
        if (whole)
            print(m_problems.empty() ? "no problems" : "problems");
        std::size_t errors = 0;
        for (const auto& [problem, drawings] : m_problems) {
            errors += problem.error() ? 1 : 0;
            printProblem(problem, drawings);
        }
        const std::string sChecked =
            m_count == 0 && !files.empty() ? counted(files.size(), "file") : counted(m_count, "drawing");
        print((whole ? "\r\n" : "") + sChecked + " checked: " + counted(errors, "error") + ", " +
              counted(m_problems.size() - errors, "warning") +
              (unchecked.empty() ? "" : ", " + std::to_string(unchecked.size()) + " not checked"));
    }

private:
    // Drawings by whose first the others are shown.
    struct Row {
        DrawingReport first;
        std::vector<std::string> drawings;
    };
    // Those with the same texts.
    struct Group {
        std::vector<std::string> drawings;
        std::vector<Row> rows = {};
        const DrawingReport& first() const { return rows.front().first; }
    };
    // Those of a project.
    using Block = std::deque<Group>;

    // All drawings of a folder have the same texts.
    Group& groupOf(const DrawingReport& report)
    {
        Group*& known = m_byFolder[report.searched];
        if (known == nullptr) {
            const auto isOfProject = [&](const Block& one) {
                return one.front().first().project.root == report.project.root;
            };
            const auto hasTexts = [&](const Group& one) { return *one.first().texts == *report.texts; };
            known = &findOrAdd(findOrAdd(m_blocks, isOfProject), hasTexts);
        }
        return *known;
    }

    void print(const std::string& sLine) const { m_console.print(sLine + "\r\n"); }

    void printPlace(std::string_view sLayer, const std::string& sState, const std::string& sPath) const
    {
        print("    " + padded(sLayer, 8) + padded(sState, 9) + sPath);
    }

    // The layers that all drawings of the block have, and where the office's is looked for.
    void printSearched(const Block& block) const
    {
        const DrawingReport& first = block.front().first();
        print(first.project.root.empty() ? "no project: no ProjectSettings.txt from the drawing's folder upwards"
                                         : "project " + first.project.root);
        print("\r\n  searched for MDITabs.ini; a later file overrides an earlier one");
        for (const Place& place : *first.searched)
            if (place.layer != "folder")
                printPlace(place.layer,
                           place.dropped ? "dropped"
                           : place.found ? counted(place.keys, "key")
                                         : "-",
                           place.path);
        printPlace("folder", "", "those beside the drawings");
        print("  domain settings folder; the first that exists is taken");
        bool taken = false;
        for (const DomainFolder& folder : *first.domain) {
            printPlace("domain",
                       !folder.found ? "-"
                       : taken       ? "there"
                                     : "taken",
                       folder.path + (folder.registry.empty() ? "" : "  <- " + folder.registry));
            taken |= folder.found;
        }
    }

    void printText(const Text& text, const std::string& sWhom) const
    {
        print("    " + padded(text.key, 18) + quoted(visible(text.value)) + sWhom);
        print(text.line == 0 ? "        no file defines it"
                             : "        from      " + padded(text.layer, 8) + at(text.file, text.line));
        for (const Setting& setting : text.overrides)
            print("        overrides " + padded(setting.layer, 8) + at(setting.file, setting.line) + "  " +
                  quoted(visible(setting.value)));
    }

    // Of a second group in the block, what differs from the first.
    void printGroup(const Group& group, const Group& first) const
    {
        const bool other = &group != &first;
        if (m_show == Show::All) {
            print("\r\n  " + (group.drawings.size() > 1 ? nameOf(group.drawings) : group.drawings.front()));
            for (const Place& place : *group.first().searched)
                if (place.layer == "folder" && place.found)
                    printPlace("folder", place.dropped ? "dropped" : counted(place.keys, "key"), place.path);
        }
        const std::vector<Text>& texts = *group.first().texts;
        const std::vector<Text>& others = *first.first().texts;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const Text& text = texts[i];
            const bool wanted = m_show == Show::Key         ? Tesk::MultiByte::equalNoCase(text.key, m_key)
                                : m_show == Show::Overrides ? !text.overrides.empty()
                                                            : true;
            if (wanted && (!other || i >= others.size() || !(text == others[i])))
                printText(text, m_show == Show::All ? "" : "  [" + nameOf(group.drawings) + "]");
        }
        if (m_show != Show::All)
            return;
        for (const Row& row : group.rows) {
            const bool known = &row != &group.rows.front() && (&row)[-1].first.project == row.first.project;
            if (!known && (!other || !(first.first().project == row.first.project)))
                printProject(row.first.project);
            printTooltip(row);
        }
    }

    void printProject(const Project& project) const
    {
        if (!project.root.empty())
            print("    label    " + quoted(visible(project.label)));
        for (const Place& place : project.searched)
            printPlace(place.layer, place.found ? "there" : "-",
                       place.path + (place.path != project.source ? ""
                                     : project.sourceIsCertain    ? "  <- its borders"
                                                                  : "  <- its borders, asked first"));
        if (project.sourceIsCertain && project.source.empty())
            print(project.borders.empty() ? "    no border is defined" : "    none of these borders is in the drawing");
        for (const Border& border : project.borders)
            print("    border   " + padded(border.block, 18) + at(border.file, border.line) +
                  (border.chosen ? "  <- in the drawing" : ""));
        for (const Mapping& mapping : project.mapping)
            print("    mapping  " + padded(mapping.key, 18) + at(mapping.file, mapping.line) + "  " + mapping.tag);
    }

    // The balloon is that of the first.
    void printTooltip(const Row& row) const
    {
        const Tooltip& tooltip = row.first.tooltip;
        print("    tooltip  " + nameOf(row.drawings) + ": " + ruleText(row.first));
        if (!tooltip.rule.empty() && tooltip.text.empty())
            print("      no balloon: the text is empty");
        if (tooltip.text.empty())
            return;
        std::string sText = tooltip.title + "\n" + tooltip.text;
        for (std::size_t end; (end = sText.find('\n')) != std::string::npos; sText.erase(0, end + 1))
            print("      | " + visible(sText.substr(0, end)));
        print("      | " + visible(sText));
    }

    void printProblem(const Problem& problem, const std::vector<std::string>& drawings) const
    {
        const std::string sPlace =
            problem.line == 0 ? problem.file : at(problem.file, problem.line) + ":" + std::to_string(problem.column);
        std::string sText = visible(problem.text);
        if (sText.size() > 2 * kShownOfText)
            sText.replace(kShownOfText, sText.size() - 2 * kShownOfText, "...");
        const std::string sWhom = drawings.empty() || m_count == 1 ? ""
                                  : drawings.size() <= kMostNames  ? " [" + nameOf(drawings) + "]"
                                                                   : " [" + counted(drawings.size(), "drawing") + "]";
        print(sPlace + (problem.error() ? ": error: " : ": warning: ") + sText + sWhom + " (" +
              std::string(problem.rule->name) + ")" + excerpt(problem));
    }

    Console& m_console;
    const Show m_show;
    const std::string m_key;
    std::deque<Block> m_blocks;
    std::map<const std::vector<Place>*, Group*> m_byFolder;  // by where their texts are looked for
    std::map<Problem, std::vector<std::string>> m_problems;  // with the drawings that have it
    std::size_t m_count = 0;
};

}  // namespace

std::unique_ptr<Reports> makeTextReport(Console& console, Show show, const std::string& sKey)
{
    return std::make_unique<TextReport>(console, show, sKey);
}

}  // namespace tabscheck
