#pragma once

// The library's windows: which object stands for which HWND, and the one window
// procedure that they share.
#include "mfc/CWnd.h"

struct WindowMap {
    // The object of a window, or null.
    static CWnd* find(HWND window);
    // False without memory.
    static bool attach(CWnd& object, HWND window, WNDPROC super) noexcept;
    // Forgets the window and gives it its procedure back where we are still the outermost.
    static void detach(CWnd& object);
    static bool isOwnProcedure(WNDPROC procedure) { return procedure == &WindowMap::procedure; }

    // While one lives, the first message of a window yet unknown, of a class
    // from AfxRegisterWndClass, ties that window to the object.
    class Creation {
    public:
        explicit Creation(CWnd& object) { creating = &object; }
        ~Creation() { creating = nullptr; }
        Creation(const Creation&) = delete;
        Creation& operator=(const Creation&) = delete;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

private:
    static CWnd* creating;
};
