#pragma once

// A picture of a window as a person sees it, with whatever lies over it.

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace host::observation {

// Rows of 3 bytes a pixel: red, green, blue.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels;
};

// The screen where the window is.
Picture capture(HWND window);
// The bytes of a PNG file.
std::string toPng(const Picture& picture);
// Throws FileError.
void writePng(const Picture& picture, const std::string& sPath);

}  // namespace host::observation
