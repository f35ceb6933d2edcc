#pragma once

// The reports for a program to read: one object in UTF-8, a drawing after the other.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <string>
#include <vector>

namespace tabscheck {

class JsonReport : public Reports {
public:
    JsonReport(Console& console, const Asked& asked);

    void add(DrawingReport report) override;
    void addFile(const std::string& sPath, const std::vector<Problem>& problems) override;
    void addUnchecked(const std::string& sPath, const std::string& sReason) override;
    void finish() override;

private:
    Console& m_console;
    bool m_first = true;
    std::string m_files, m_unchecked;  // the members of their arrays
};

}  // namespace tabscheck
