#pragma once

// One drawing after the other: what the strip finds and shows for it, and what is wrong.

#include "tabscheck/NameCheck.h"
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

    // The full path of a drawing, which need not exist, or of a settings file.
    DrawingReport check(const std::string& sPath);

private:
    void checkSettingsFile(DrawingReport& report);

    SourceFiles m_files;
    TextCheck m_texts;
    ProjectCheck m_projects;
    NameCheck m_names;
    std::vector<DomainFolder> m_domainFolders;
    std::vector<Problem> m_commonProblems;  // of the registry
};

}  // namespace tabscheck
