#include "tabscheck/TextReport.h"

#include "library/files/PathParts.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

namespace tabscheck {

namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kShownBefore = 60;  // of a long line, around the caret
constexpr std::size_t kShownBehind = 60;
constexpr std::size_t kShownOfText = 180;  // at either end

std::string padded(std::string_view sText, std::size_t width)
{
    return std::string(sText) + std::string(width - std::min(width, sText.size()) + 1, ' ');
}

std::string counted(std::size_t count, const std::string& sThing)
{
    return std::to_string(count) + " " + sThing + (count == 1 ? "" : "s");
}

// One line, whatever is in the text.
std::string visible(std::string_view sText)
{
    std::string sVisible;
    for (const char c : sText)
        sVisible += c == '\n' ? std::string("\\n") : std::string(1, c == '\r' ? ' ' : c);
    return sVisible;
}

std::string quoted(std::string_view sText) { return "\"" + visible(sText) + "\""; }

std::string nameOfDrawing(const std::string& sPath) { return Tesk::CPathParts(sPath).fileName(); }

std::string at(const std::string& sFile, unsigned line) { return sFile + ":" + std::to_string(line); }

// Below the problem its line with a caret; of a long one the part around it.
std::string excerpt(const Problem& problem)
{
    if (problem.column == 0 || problem.source.empty())
        return {};
    const std::size_t position = std::min<std::size_t>(problem.column - 1, problem.source.size());
    const std::size_t from = position > kShownBefore ? position - kShownBefore : 0;
    const std::size_t to = std::min(position + kShownBehind, problem.source.size());
    const std::string sBefore = from > 0 ? "..." : "";
    std::string sLine = problem.source.substr(from, to - from);
    std::replace_if(
        sLine.begin(), sLine.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return "\r\n    " + sBefore + sLine + (to < problem.source.size() ? "..." : "") + "\r\n    " +
           std::string(sBefore.size() + position - from, ' ') + "^";
}

std::string ruleText(const Tooltip& tooltip)
{
    if (tooltip.rule.empty())
        return "none, as it cannot be read";
    if (!tooltip.contentsKnown)
        return "by TooltipText, if it holds its title block; its contents are not read here";
    if (tooltip.rule == "template")
        return "by TooltipText, as it holds its title block";
    return tooltip.rule == "title" ? "its Title property, as it holds no title block"
                                   : "by DefaultTooltipText, as it holds neither title block nor Title property";
}

// Which of several drawings, unless all.
std::string someOf(const std::vector<std::string>& names, std::size_t all)
{
    if (names.size() == all)
        return {};
    std::string sNames;
    for (std::size_t i = 0; i < std::min(names.size(), kMostNames); ++i)
        sNames += (i == 0 ? " [" : ", ") + names[i];
    return sNames + (names.size() > kMostNames ? " and " + std::to_string(names.size() - kMostNames) + " more]" : "]");
}

}  // namespace

void TextReport::add(DrawingReport report)
{
    ++(report.settingsFile ? m_files : m_count);
    for (const Problem& problem : std::set<Problem>(report.problems.begin(), report.problems.end()))
        m_problems[problem] += report.settingsFile ? 0 : 1;
    if (m_problemsAlone)
        return;
    if (!m_run.empty() &&
        (report.settingsFile || m_run.back().searched != report.searched || m_run.back().texts != report.texts))
        flush();
    m_run.push_back(std::move(report));
}

void TextReport::finish()
{
    flush();
    std::size_t errors = 0;
    for (const auto& [problem, count] : m_problems) {
        errors += problem.error ? 1 : 0;
        if (m_problemsAlone)
            printProblem(problem, count == 0 ? "" : " [" + counted(count, "drawing") + "]");
    }
    print((m_count == 0 && m_files != 0 ? counted(m_files, "file") : counted(m_count, "drawing")) +
          " checked: " + counted(errors, "error") + ", " + counted(m_problems.size() - errors, "warning"));
}

void TextReport::flush()
{
    if (m_run.empty())
        return;
    const std::string& sFirst = m_run.front().path;
    print(m_run.size() == 1 ? sFirst : counted(m_run.size(), "drawing") + " in " + Tesk::CPathParts(sFirst).parent());
    if (!m_run.front().settingsFile) {
        printSearched();
        printTexts();
        printProjects();
    }
    printProblems();
    m_run.clear();
}

void TextReport::print(const std::string& sLine) const { m_console.print(sLine + "\r\n"); }

void TextReport::printPlace(std::string_view sLayer, const std::string& sState, const std::string& sPath) const
{
    print("    " + padded(sLayer, 8) + padded(sState, 9) + sPath);
}

void TextReport::printSearched() const
{
    print("\r\n  searched for MDITabs.ini; a later file overrides an earlier one");
    for (const Place& place : m_run.front().searched)
        printPlace(place.layer, place.dropped ? "dropped" : place.found ? counted(place.keys, "key") : "-", place.path);
    print("  domain settings folder; the first that exists is taken");
    const char* sState = "taken";
    for (const DomainFolder& folder : m_run.front().domain)
        printPlace("domain", folder.found ? std::exchange(sState, "there") : "-",
                   folder.path + (folder.registry.empty() ? "" : "  <- " + folder.registry));
}

void TextReport::printTexts() const
{
    print("\r\n  texts");
    for (const Text& text : m_run.front().texts) {
        print("    " + padded(text.key, 18) + quoted(text.value));
        print(text.line == 0 ? "        no file defines it"
                             : "        from      " + padded(text.layer, 8) + at(text.file, text.line));
        for (const Setting& setting : text.overrides)
            print("        overrides " + padded(setting.layer, 8) + at(setting.file, setting.line) + "  " +
                  quoted(setting.value));
    }
}

// Drawings of one folder share their project, but not the border in use.
void TextReport::printProjects() const
{
    for (auto first = m_run.begin(); first != m_run.end();) {
        const auto behind = std::find_if(first, m_run.end(),
                                         [&](const DrawingReport& other) { return other.project != first->project; });
        printProject(first->project);
        print("\r\n  tooltip");
        while (first != behind) {
            const auto next = std::find_if(first, behind,
                                           [&](const DrawingReport& other) { return other.tooltip != first->tooltip; });
            const std::string sLast = nameOfDrawing(std::prev(next)->path);
            const auto count = static_cast<std::size_t>(next - first);
            print("    " + nameOfDrawing(first->path) +
                  (count == 1 ? "" : " to " + sLast + " (" + counted(count, "drawing") + ")") + ": " +
                  ruleText(first->tooltip));
            printBalloon(first->tooltip);
            first = next;
        }
    }
}

void TextReport::printProject(const Project& project) const
{
    print("\r\n  project");
    print("    root     " +
          (project.root.empty() ? "none: no ProjectSettings.txt from the drawing's folder upwards" : project.root));
    if (!project.root.empty())
        print("    label    " + quoted(project.label));
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

void TextReport::printBalloon(const Tooltip& tooltip) const
{
    if (!tooltip.rule.empty() && tooltip.text.empty())
        print("      no balloon: the text is empty");
    if (tooltip.text.empty())
        return;
    std::string sText = tooltip.title + "\n" + tooltip.text;
    for (std::size_t end; (end = sText.find('\n')) != std::string::npos; sText.erase(0, end + 1))
        print("      | " + visible(sText.substr(0, end)));
    print("      | " + visible(sText));
}

void TextReport::printProblems()
{
    std::vector<Problem> order;
    std::map<Problem, std::vector<std::string>> names;
    for (const DrawingReport& report : m_run) {
        for (const Problem& problem : report.problems) {
            std::vector<std::string>& drawings = names[problem];
            if (drawings.empty())
                order.push_back(problem);
            if (drawings.empty() || drawings.back() != nameOfDrawing(report.path))
                drawings.push_back(nameOfDrawing(report.path));
        }
    }
    print(order.empty() ? "\r\n  no problems" : "\r\n  problems");
    for (const Problem& problem : order)
        printProblem(problem, someOf(names[problem], m_run.size()));
    print("");
}

void TextReport::printProblem(const Problem& problem, const std::string& sWhom)
{
    const std::string sPlace =
        problem.line == 0 ? problem.file : at(problem.file, problem.line) + ":" + std::to_string(problem.column);
    std::string sText = visible(problem.text);
    if (sText.size() > 2 * kShownOfText)
        sText.replace(kShownOfText, sText.size() - 2 * kShownOfText, "...");
    print(sPlace + (problem.error ? ": error: " : ": warning: ") + sText + sWhom + excerpt(problem));
}

}  // namespace tabscheck
