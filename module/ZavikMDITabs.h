#pragma once

// The module's spine: entry point, start-up and stop, the one tab window and the
// one command. The host's user-interface thread runs all of it.

#include "objectarx/rxdefs.h"
#include "tabs/ARXMDITabs.h"

#include <memory>

// Null while the strip is off.
extern std::unique_ptr<CARXMDITabs> m_pWndTabs;

// The host's messages; only load and unload are acted on. Always kRetOK.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);

void initApplication();
void unloadApplication();

// There must be no window. Whether one could be made is not checked.
void createTabWindow();
// There must be a window.
void destroyTabWindow();

// Lays the host's frame out when the number of tabs is at the edge of the strip's
// being shown: 0, 1 or 2.
void updateFrameLayout();

// The command "ZavikMDITabs": the options dialog, and the strip after it.
void runOptionsCommand();
