#pragma once

// What the windows of this thread are, as a table: a line a window, those of the frame and
// of an open dialog in their order from the top, owned ones behind them.

#include <windows.h>

#include <string>

namespace host::observation {

// window "CLASS" ID: rect=L,T,R,B style=X exstyle=X font=..., and what else there is to say.
std::string describeWindows(HWND frame);

}  // namespace host::observation
