#pragma once

// The reports for a person to read. Drawings of one folder, whose texts are the same, are
// shown together.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <string>
#include <vector>

namespace tabscheck {

class TextReport {
public:
    explicit TextReport(Console& console) : m_console(console) {}

    void add(DrawingReport report);
    // After the last drawing.
    void finish();

private:
    void flush();
    void printHeader() const;
    void printSearched() const;
    void printTexts() const;
    void printProjects() const;
    void printProject(const Project& project) const;
    void printTooltips(std::size_t first, std::size_t behind) const;
    void printProblems();
    std::string drawingsOf(const Problem& problem) const;

    Console& m_console;
    std::vector<DrawingReport> m_run;  // drawings with the same texts
    std::vector<Problem> m_problems;   // of all drawings, each once
    std::size_t m_count = 0;
};

}  // namespace tabscheck
