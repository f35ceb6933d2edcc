#pragma once

// What the registry says: where the office's settings are, and how the host loads the module.

#include "tabscheck/Report.h"

#include <vector>

namespace tabscheck {

// The candidates for the domain settings folder, in their order; adds what is wrong with
// what an administrator registered.
std::vector<DomainFolder> findDomainFolders(std::vector<Problem>& problems);

// The machine's entries that load nothing, and the current user's that hide one of the
// machine's: a roll-out does not reach him.
void checkLoadEntries(std::vector<Problem>& problems);

}  // namespace tabscheck
