#include "tabscheck/TextReport.h"

#include "library/files/PathParts.h"

#include <algorithm>
#include <set>

namespace tabscheck {

namespace {

constexpr std::size_t kMostNames = 3;
constexpr std::size_t kShownBefore = 60;  // of a long line, around the caret
constexpr std::size_t kShownBehind = 60;

std::string padded(std::string sText, std::size_t width)
{
    sText.resize(std::max(sText.size(), width), ' ');
    return sText + " ";
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

std::string placeState(const Place& place, const std::string& sThing)
{
    if (place.dropped)
        return "dropped";
    return place.found ? counted(place.keys, sThing) : "-";
}

std::string at(const std::string& sFile, unsigned line) { return sFile + ":" + std::to_string(line); }

// The line with a caret below; of a long one the part around it.
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
    return "    " + sBefore + sLine + (to < problem.source.size() ? "..." : "") + "\r\n    " +
           std::string(sBefore.size() + position - from, ' ') + "^\r\n";
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
    for (const Problem& problem : std::set<Problem>(report.findings.problems.begin(), report.findings.problems.end()))
        ++m_problems[problem];
    if (m_problemsAlone)
        return;
    if (!m_run.empty()) {
        const Findings& last = m_run.back().findings;
        const Findings& now = report.findings;
        if (report.settingsFile || last.searched != now.searched || last.texts != now.texts)
            flush();
    }
    m_run.push_back(std::move(report));
}

void TextReport::finish()
{
    flush();
    std::size_t errors = 0;
    for (const auto& [problem, count] : m_problems) {
        errors += problem.error ? 1 : 0;
        if (m_problemsAlone)
            printProblem(problem, m_count == 0 ? "" : " [" + counted(count, "drawing") + "]");
    }
    if (m_count == 0 && m_files != 0)
        m_console.print(counted(m_files, "file"));
    else
        m_console.print(counted(m_count, "drawing"));
    m_console.print(" checked: " + counted(errors, "error") + ", " + counted(m_problems.size() - errors, "warning") +
                    "\r\n");
}

void TextReport::flush()
{
    if (m_run.empty())
        return;
    printHeader();
    if (!m_run.front().settingsFile) {
        printSearched();
        printTexts();
        printProjects();
    }
    printProblems();
    m_run.clear();
}

void TextReport::printHeader() const
{
    const std::string& sFirst = m_run.front().path;
    m_console.print(
        (m_run.size() == 1 ? sFirst : counted(m_run.size(), "drawing") + " in " + Tesk::CPathParts(sFirst).parent()) +
        "\r\n");
}

void TextReport::printSearched() const
{
    const Findings& findings = m_run.front().findings;
    m_console.print("\r\n  searched for MDITabs.ini; a later file overrides an earlier one\r\n");
    for (const Place& place : findings.searched)
        m_console.print("    " + padded(nameOf(place.layer), 8) + padded(placeState(place, "key"), 9) + place.path +
                        "\r\n");
    m_console.print("  domain settings folder; the first that exists is taken\r\n");
    bool taken = false;
    for (const DomainFolder& folder : findings.domainFolders) {
        const bool takes = folder.found && !taken;
        taken |= takes;
        m_console.print("    " + padded("domain", 8) +
                        padded(takes          ? "taken"
                               : folder.found ? "there"
                                              : "-",
                               9) +
                        folder.path + (folder.key.empty() ? "" : "  <- " + folder.key) + "\r\n");
    }
}

void TextReport::printTexts() const
{
    m_console.print("\r\n  texts\r\n");
    for (const Text& text : m_run.front().findings.texts) {
        m_console.print("    " + padded(text.key, 18) + quoted(text.value()) + "\r\n");
        if (text.settings.empty())
            m_console.print("        no file defines it\r\n");
        for (std::size_t i = 0; i < text.settings.size(); ++i) {
            const Setting& setting = text.settings[i];
            m_console.print("        " + padded(i == 0 ? "from" : "overrides", 9) + padded(nameOf(setting.layer), 8) +
                            at(setting.file, setting.line) + (i == 0 ? "" : "  " + quoted(setting.value)) + "\r\n");
        }
    }
}

// Drawings of one folder share their project, but not the border in use.
void TextReport::printProjects() const
{
    for (std::size_t first = 0; first < m_run.size();) {
        std::size_t behind = first;
        while (behind < m_run.size() && m_run[behind].findings.project == m_run[first].findings.project)
            ++behind;
        printProject(m_run[first].findings.project);
        printTooltips(first, behind);
        first = behind;
    }
}

void TextReport::printProject(const Project& project) const
{
    m_console.print("\r\n  project\r\n");
    m_console.print(
        "    " + padded("root", 8) +
        (project.root.empty() ? "none: no ProjectSettings.txt from the drawing's folder upwards" : project.root) +
        "\r\n");
    if (!project.root.empty())
        m_console.print("    " + padded("label", 8) + quoted(project.label) + "\r\n");
    for (const Place& place : project.searched)
        m_console.print("    " + padded(nameOf(place.layer), 8) + padded(place.found ? "there" : "-", 9) + place.path +
                        (place.path == project.source
                             ? project.sourceIsCertain ? "  <- its borders" : "  <- its borders, asked first"
                             : "") +
                        "\r\n");
    if (project.sourceIsCertain && project.source.empty())
        m_console.print(project.borders.empty() ? "    no border is defined\r\n"
                                                : "    none of these borders is in the drawing\r\n");
    for (const Border& border : project.borders)
        m_console.print("    " + padded("border", 8) + padded(border.block, 18) + at(border.file, border.line) +
                        (border.chosen ? "  <- in the drawing" : "") + "\r\n");
    for (const Mapping& mapping : project.mapping)
        m_console.print("    " + padded("mapping", 8) + padded(mapping.key, 18) + at(mapping.file, mapping.line) +
                        "  " + mapping.tag + "\r\n");
}

void TextReport::printTooltips(std::size_t first, std::size_t behind) const
{
    m_console.print("\r\n  tooltip\r\n");
    while (first < behind) {
        const Tooltip& tooltip = m_run[first].tooltip;
        std::size_t next = first;
        while (next < behind && m_run[next].tooltip == tooltip)
            ++next;
        m_console.print("    " + nameOfDrawing(m_run[first].path) +
                        (next - first == 1 ? ""
                                           : " to " + nameOfDrawing(m_run[next - 1].path) + " (" +
                                                 counted(next - first, "drawing") + ")") +
                        ": " + ruleText(tooltip) + "\r\n");
        if (!tooltip.rule.empty() && tooltip.text.empty())
            m_console.print("      no balloon: the text is empty\r\n");
        if (!tooltip.text.empty()) {
            std::string sText = tooltip.title + "\n" + tooltip.text;
            for (std::size_t end; (end = sText.find('\n')) != std::string::npos; sText.erase(0, end + 1))
                m_console.print("      | " + visible(sText.substr(0, end)) + "\r\n");
            m_console.print("      | " + visible(sText) + "\r\n");
        }
        first = next;
    }
}

void TextReport::printProblems()
{
    std::vector<Problem> order;
    std::map<Problem, std::vector<std::string>> names;
    for (const DrawingReport& report : m_run) {
        for (const Problem& problem : report.findings.problems) {
            std::vector<std::string>& drawings = names[problem];
            if (drawings.empty())
                order.push_back(problem);
            if (drawings.empty() || drawings.back() != nameOfDrawing(report.path))
                drawings.push_back(nameOfDrawing(report.path));
        }
    }
    m_console.print(order.empty() ? "\r\n  no problems\r\n" : "\r\n  problems\r\n");
    for (const Problem& problem : order)
        printProblem(problem, someOf(names[problem], m_run.size()));
    m_console.print("\r\n");
}

void TextReport::printProblem(const Problem& problem, const std::string& sWhom)
{
    std::string sPlace = problem.file;
    if (problem.line != 0)
        sPlace += ":" + std::to_string(problem.line) + ":" + std::to_string(problem.column);
    m_console.print(sPlace + ": " + (problem.error ? "error: " : "warning: ") + visible(problem.text) + sWhom + "\r\n" +
                    excerpt(problem));
}

}  // namespace tabscheck
