#pragma once

#include <string>

namespace tabscheck {

// What the library hears of the host that is asked for.
void describeHost(const std::string& sRelease, const std::string& sProduct);

}  // namespace tabscheck
