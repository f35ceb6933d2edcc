#pragma once

// One drawing after the other: what the strip finds and shows for it, and what is wrong.

#include "tabscheck/ProjectCheck.h"
#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"
#include "tabscheck/TextCheck.h"

#include <string>
#include <vector>

namespace tabscheck {

class DrawingCheck {
public:
    DrawingCheck();

    // The full path of a drawing, which need not exist.
    DrawingReport check(const std::string& sDrawing);

private:
    SourceFiles m_files;
    TextCheck m_texts;
    ProjectCheck m_projects;
    std::vector<Place> m_domainFolders;
    std::vector<Problem> m_loadProblems;
};

}  // namespace tabscheck
