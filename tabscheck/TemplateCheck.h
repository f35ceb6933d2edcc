#pragma once

// Whether a tooltip template says anything that the strip does not understand.

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace tabscheck {

struct TemplateFault {
    bool error = false;
    std::size_t position = 0;  // in the template
    std::string text;
};

// The keywords are those without delimiters; dates are known here.
std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const std::set<std::string>& keywords);

}  // namespace tabscheck
