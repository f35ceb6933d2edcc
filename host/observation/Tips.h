#pragma once

// The balloon that shows, read from its window. A tooltip control of the old kind
// does not tell its title, so that is noted when the title is set.

#include <windows.h>

#include <string>

namespace host::observation {

class Tips {
public:
    // Notes the titles of all tooltip windows of this thread from now on.
    Tips();
    ~Tips();
    Tips(const Tips&) = delete;
    Tips& operator=(const Tips&) = delete;

    // The HOVER command's line, for the tooltip that shows now.
    static std::string describe();
    // Whether there is a tooltip control, so that a balloon may come.
    static bool exist();
    // The icon of the title that the balloon was given, as TTM_SETTITLE counts them.
    static int iconOf(HWND tip);
    static bool isShown();
    static void hide();

private:
    HHOOK m_hook;
};

}  // namespace host::observation
