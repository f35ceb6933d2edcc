#pragma once

// The module's spine: entry point, start-up and stop, and the one tab window. The
// host's user-interface thread runs all of it.

#include "objectarx/rxdefs.h"
#include "tabs/ARXMDITabs.h"

#include <memory>

// Null while the strip is off.
extern std::unique_ptr<CARXMDITabs> m_pWndTabs;

// The same for who needs it; null only after an assertion.
CARXMDITabs* getTabWindow();

// The host's messages; only load and unload are acted on. Always kRetOK.
extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt);

void initApplication();
void unloadApplication();

// Debug mode stays, any other level ends.
void reapplyDiagnosticsLevel();

// The window and the reactors on it; in the other order, whatever fails in between.
void openStrip();
void closeStrip();

// There must be no window. Whether one could be made is not checked.
void createTabWindow();
// There must be a window.
void destroyTabWindow();

// Lays the host's frame out when the number of tabs is at the edge of the strip's
// being shown: 0, 1 or 2.
void updateFrameLayout();
