#pragma once

// A picture of a window as a person sees it, with whatever lies over it.

#include <windows.h>

#include <string>

namespace host::observation {

// Writes the screen where the window is to a PNG file. Throws FileError.
void savePicture(HWND window, const std::string& sPath);

}  // namespace host::observation
