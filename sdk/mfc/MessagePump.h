#pragma once

// The message loop of the host, and the offering of messages to
// PreTranslateMessage that it shares with modal loops.
#include "mfc/Toolkit.h"

#include <windows.h>

namespace toolkit {

// Offers the message to the objects of msg.hwnd and its parents in turn, up to
// `stop` (included). True when one of them took it.
CADMFC_API bool preTranslate(MSG& message, HWND stop = nullptr);

// Handles the next message, waiting for it; what the filter takes goes no further. False
// for WM_QUIT.
CADMFC_API bool pumpMessage(bool (*filter)(MSG& message) = nullptr);

}  // namespace toolkit
