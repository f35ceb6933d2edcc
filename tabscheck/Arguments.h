#pragma once

// The command line.

#include "tabscheck/Report.h"

#include <set>
#include <string>
#include <utility>

namespace tabscheck {

struct Arguments {
    Asked asked = {"", "16.0", "AutoCAD", {}};
    Show show = Show::All;
    std::string key;  // for Show::Key
    bool json = false;
    bool strict = false;
    bool help = false;
    bool version = false;
    std::set<std::pair<std::string, std::string>> accepted;  // names and the files they are for, or none

    bool accepts(const Problem& problem) const;
};

// Throws std::invalid_argument with what is wrong.
Arguments parse(int count, char** words);

std::string usage();

}  // namespace tabscheck
