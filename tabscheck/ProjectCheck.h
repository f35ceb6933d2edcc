#pragma once

// The project settings file and the two of the same form that stand behind it, with what
// each line gave.

#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"

#include <map>
#include <string>
#include <vector>

namespace tabscheck {

struct ProjectFile {
    Place place;
    std::string label;
    std::vector<Border> borders;
    std::vector<std::vector<Mapping>> mappings;  // of the borders' groups
    std::vector<Problem> problems;
};

// The files for one drawing, in the order in which the strip asks them.
struct ProjectFindings {
    std::string root;
    std::vector<const ProjectFile*> files;

    const ProjectFile* find(const std::string& sPath) const;
    // The project's own file; null without one.
    const ProjectFile* own() const { return root.empty() ? nullptr : files.front(); }
    std::string label() const { return root.empty() ? "" : files.front()->label; }
};

class ProjectCheck {
public:
    explicit ProjectCheck(SourceFiles& files) : m_files(files) {}

    ProjectFindings of(const std::string& sDrawing);
    const ProjectFile& get(Layer layer, const std::string& sPath);

private:
    SourceFiles& m_files;
    std::map<std::string, ProjectFile> m_read;
};

}  // namespace tabscheck
