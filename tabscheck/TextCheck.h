#pragma once

// The texts of "MDITabs.ini" as the strip gets them, and which file and line gave each.

#include "tabscheck/Report.h"
#include "tabscheck/SourceFile.h"
#include "tabscheck/TemplateCheck.h"

#include <map>
#include <string>
#include <vector>

namespace tabscheck {

inline constexpr const char* kSettingsFile = "MDITabs.ini";

// What the copies that are there give together.
struct TextFindings {
    std::vector<Place> copies;
    std::vector<Text> texts;
    std::vector<Problem> problems;

    // Null for a key that nothing defines and that the strip need not have.
    const Text* find(std::string_view sKey) const;
    // Empty for such a key.
    std::string valueOf(std::string_view sKey) const;
};

class TextCheck {
public:
    explicit TextCheck(SourceFiles& files);

    // For the drawing of that full path, and where they were looked for. Folders with the same
    // copies have the same.
    const TextFindings& of(const std::string& sDrawing, std::vector<Place>& searched);
    // For this copy alone.
    TextFindings ofFile(const std::string& sPath);
    // Adds what is wrong with a text that is a template, if it is there, where it is defined.
    void checkTemplateOf(const TextFindings& texts, const char* sKey, const Keywords& keywords,
                         std::vector<Problem>& problems) const;

private:
    SourceFiles& m_files;
    std::vector<CString> m_bases;
    std::map<std::string, TextFindings> m_merged;  // by the paths of the copies
};

}  // namespace tabscheck
