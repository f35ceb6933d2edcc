#pragma once

// What an office may switch on beside the strip's own: more items of a tab's menu, names
// told apart, the middle mouse button.

#include "tabs/ARXMDITabs.h"

#include <memory>

// For the strip, whose window exists.
std::unique_ptr<CTabAdditions> createAdditions(CARXMDITabs& tabs);
