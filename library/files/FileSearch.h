#pragma once

// Which files and folders exist, and the search upwards.

#include "mfc/afx.h"

namespace Tesk {

// A file (not a folder) that can be opened for reading.
bool fileExists(const char* sPath);

// A folder; a file of that name does not count.
bool folderExists(const char* sPath);

// The nearest folder, from `sStart` up to the drive's root, that holds the file; with a
// trailing backslash. Empty when none does.
CString findFolderUpwards(const char* sStart, const char* sFileName);

}  // namespace Tesk
