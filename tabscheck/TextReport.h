#pragma once

// The reports for a person to read. Drawings of one folder, whose texts are the same, are
// shown together; or the problems alone, each once.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

class TextReport : public Reports {
public:
    TextReport(Console& console, bool problemsAlone) : m_console(console), m_problemsAlone(problemsAlone) {}

    void add(DrawingReport report) override;
    void finish() override;

private:
    void flush();
    void print(const std::string& sLine) const;
    void printPlace(std::string_view sLayer, const std::string& sState, const std::string& sPath) const;
    void printSearched() const;
    void printTexts() const;
    void printProjects() const;
    void printProject(const Project& project) const;
    void printBalloon(const Tooltip& tooltip) const;
    void printProblems();
    void printProblem(const Problem& problem, const std::string& sWhom);

    Console& m_console;
    std::vector<DrawingReport> m_run;           // drawings with the same texts
    std::map<Problem, std::size_t> m_problems;  // of all drawings, with how many have it
    std::size_t m_count = 0;
    std::size_t m_files = 0;
    const bool m_problemsAlone;
};

}  // namespace tabscheck
