#pragma once

// The registry entries by which the host loads the module.

#include "tabscheck/Report.h"

#include <vector>

namespace tabscheck {

// The current user's entries that hide one of the machine's: a roll-out does not reach him.
std::vector<Problem> checkLoadEntries();

}  // namespace tabscheck
