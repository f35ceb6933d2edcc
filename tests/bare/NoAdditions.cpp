// The module's one line installs nothing.
#include "additions/Additions.h"

std::unique_ptr<CTabAdditions> createAdditions(CARXMDITabs&) { return nullptr; }
