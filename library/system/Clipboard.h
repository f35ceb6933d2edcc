#pragma once

// Text for other programs to paste.

#include "mfc/afx.h"

#include <windows.h>

namespace Tesk {

// Replaces what the clipboard holds; the window becomes its owner. False, with nothing
// changed, while another program holds the clipboard open.
bool copyToClipboard(HWND hOwner, const CString& sText);

}  // namespace Tesk
