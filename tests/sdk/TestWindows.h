#pragma once

// Windows that the toolkit's tests share.
#include "mfc/afxwin.h"

#include <functional>

// A frame on the screen, 400 x 300 pixels of client area.
class TestFrame : public CMDIFrameWnd {
public:
    TestFrame()
    {
        CreateEx(0, AfxRegisterWndClass(0), "frame", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, RECT{0, 0, 0, 0}, nullptr,
                 0);
        RECT rect = {0, 0, 400, 300};
        ::AdjustWindowRectEx(&rect, GetStyle(), FALSE, GetExStyle());
        SetWindowPos(nullptr, 0, 0, rect.right - rect.left, rect.bottom - rect.top, SWP_NOZORDER);
    }
};

// A window without an object, which sees all that is sent or posted to it.
class PlainWindow {
public:
    using Procedure = std::function<void(UINT message)>;

    PlainWindow(HWND parent, UINT id, Procedure procedure);
    ~PlainWindow();
    PlainWindow(const PlainWindow&) = delete;
    PlainWindow& operator=(const PlainWindow&) = delete;

    HWND handle() const { return m_window; }

private:
    static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Procedure m_procedure;
    WNDPROC m_super = nullptr;
    HWND m_window = nullptr;
};

// Dispatches what waits in the queue, through the pump. The code of WM_QUIT, or -1.
int pumpWaiting();
