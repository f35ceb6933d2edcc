#pragma once

// One drawing after the other: what the strip finds and shows for it, and what is wrong; at
// the end, what is wrong with all of them.

#include "tabscheck/DrawingExpansion.h"
#include "tabscheck/ProjectCheck.h"
#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"
#include "tabscheck/Strays.h"
#include "tabscheck/TextCheck.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tabscheck {

class DrawingCheck {
public:
    DrawingCheck(const std::string& sRelease, const std::string& sProduct);

    // The full path of a drawing, which need not exist.
    DrawingReport check(const std::string& sPath);
    // What is wrong with a settings file that was named.
    std::vector<Problem> checkFile(const std::string& sPath);
    // After the last drawing, what belongs to none of them alone; all drawings below these
    // folders were checked.
    std::vector<Problem> finish(const std::vector<std::string>& folders);

    Strays& strays() { return m_strays; }

private:
    friend class Check;

    DrawingExpansion& expansionOf(const std::string& sDrawing, const TextFindings& texts);
    // A file of texts that was named, which may be meant for any drawing.
    std::vector<Problem> checkTexts(const std::string& sPath);

    // How many of a project's drawings hold one of its borders.
    struct Use {
        unsigned drawings = 0;
        unsigned held = 0;
    };

    const std::string m_release;
    const std::string m_product;
    SourceFiles m_files;
    TextCheck m_texts;
    ProjectCheck m_projects;
    Strays m_strays;
    std::optional<DrawingExpansion> m_expansion;  // of the last drawing
    std::string m_folder;                         // that it is in
    std::vector<Problem> m_commonProblems;        // of the registry
    std::vector<DomainFolder> m_domainFolders;
    std::map<const ProjectFile*, Use> m_uses;
    // Of templates, by what they are and which title-block values there are.
    std::map<std::pair<const TextFindings*, std::string>, std::vector<Problem>> m_templates;
};

}  // namespace tabscheck
