#pragma once

// The reports for a program to read: one object in UTF-8, a drawing after the other.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <vector>

namespace tabscheck {

class JsonReport : public Reports {
public:
    JsonReport(Console& console, const Asked& asked);

    void add(DrawingReport report) override;
    void finish(const std::vector<FileReport>& files, const std::vector<Unchecked>& unchecked) override;

private:
    Console& m_console;
    bool m_first = true;
};

}  // namespace tabscheck
