#pragma once

// The reports for a program to read: one object in UTF-8, a drawing after the other.

#include "tabscheck/Console.h"
#include "tabscheck/Report.h"

namespace tabscheck {

class JsonReport {
public:
    explicit JsonReport(Console& console);

    void add(const DrawingReport& report);
    // After the last drawing.
    void finish();

private:
    Console& m_console;
    bool m_first = true;
};

}  // namespace tabscheck
