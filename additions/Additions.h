#pragma once

// What an office may switch on beside the strip's own: more items of a tab's menu, other
// names on the tabs, wheel, dragging and the middle mouse button. Without being asked it
// only sees to it that the strip uses its room.

#include "tabs/ARXMDITabs.h"

#include <memory>

// For the strip, whose window exists.
std::unique_ptr<CTabAdditions> createAdditions(CARXMDITabs& tabs);
