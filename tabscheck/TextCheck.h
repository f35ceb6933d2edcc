#pragma once

// The texts of "MDITabs.ini" as the strip gets them, and which file and line gave each.

#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"

#include <map>
#include <string>
#include <vector>

namespace tabscheck {

struct TextFindings {
    std::vector<Place> searched;
    std::vector<Text> texts;
    std::vector<Problem> problems;

    // Never null for a key that the strip reads always.
    const Text* find(const std::string& sKey) const;
};

class TextCheck {
public:
    explicit TextCheck(SourceFiles& files) : m_files(files) {}

    // For the drawing of that full path. All drawings of a folder have the same.
    const TextFindings& of(const std::string& sDrawing);

private:
    TextFindings read(const std::string& sDrawing);

    SourceFiles& m_files;
    std::map<std::string, TextFindings> m_byFolder;
};

}  // namespace tabscheck
