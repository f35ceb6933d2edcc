#pragma once

// Files and folders shown in the system's Explorer.

#include "mfc/afx.h"

#include <windows.h>

namespace Tesk {

// Opens the file's folder with the file selected; the folder alone when there is no such
// file. False when there is no folder either, or Explorer cannot be started.
bool showInExplorer(HWND hOwner, const CString& sFile);

}  // namespace Tesk
