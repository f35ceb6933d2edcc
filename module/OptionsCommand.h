#pragma once

// The command "ZavikMDITabs": the options dialog, and the strip after it. The host runs
// it; nothing is raised.
void runOptionsCommand();
