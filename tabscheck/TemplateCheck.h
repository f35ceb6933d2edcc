#pragma once

// Whether a template says anything that the strip does not understand.

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

// What a template may name, without delimiters; dates are known here.
struct Keywords {
    std::set<std::string> names;
    bool mappingKnown = true;  // else any key of a title block may be there
};

std::vector<TemplateFault> checkTemplate(const std::string& sTemplate, const Keywords& keywords);

// The first token, with its delimiters, in a text that is no template; empty when there is none.
std::string findToken(const std::string& sText);

}  // namespace tabscheck
