#pragma once

// Whether a template says anything that the strip does not understand.

#include "tabscheck/Problem.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tabscheck {

struct TemplateFault {
    const Rule* rule;
    std::size_t position;  // in the template
    std::string text;
};

// What a template may name, without delimiters; dates are known here.
struct Keywords {
    std::set<std::string> names;
    bool mappingKnown = true;                 // else any key of a title block may be there
    std::map<std::string, std::string> lost;  // names that others may think of, and why they are none here
    std::string emptyLabel;                   // the project's file, when it has no label
};

std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const Keywords& keywords);

}  // namespace tabscheck
