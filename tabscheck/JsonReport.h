#pragma once

// The reports for a program to read: one object in UTF-8, a drawing after the other.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

#include <string>
#include <vector>

namespace tabscheck {

class JsonReport {
public:
    explicit JsonReport(Console& console);

    void add(const DrawingReport& report);
    // A path that could not be checked.
    void addUnchecked(const std::string& sPath, const std::string& sReason);
    // After the last drawing.
    void finish();

private:
    Console& m_console;
    bool m_first = true;
    std::vector<std::string> m_files;      // settings files that were named
    std::vector<std::string> m_unchecked;  // both as JSON
    // Drawings of one folder mostly have the same texts: those of the last one, and as JSON.
    std::vector<Place> m_searched;
    std::vector<Text> m_texts;
    std::string m_sSame;
};

}  // namespace tabscheck
