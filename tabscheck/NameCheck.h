#pragma once

// Files and folders that somebody meant as settings, and that nothing ever reads.

#include "tabscheck/Folders.h"
#include "tabscheck/Report.h"

#include <map>
#include <string>
#include <vector>

namespace tabscheck {

class NameCheck {
public:
    // For drawings of this folder and project; empty stands for no project.
    const std::vector<Problem>& of(const std::string& sFolder, const std::string& sRoot);

private:
    struct Wanted {
        std::string folder;  // to look in
        const char* name;    // to be there, in a few spellings
        std::string meant;   // the full path; empty for the name in that folder
    };

    const std::vector<FolderEntry>& entries(const std::string& sFolder);
    bool has(const std::string& sFolder, const std::string& sName);
    void look(const Wanted& wanted, std::vector<Problem>& problems);

    std::map<std::string, std::vector<FolderEntry>> m_entries;
    std::map<std::string, std::vector<Problem>> m_problems;
};

}  // namespace tabscheck
