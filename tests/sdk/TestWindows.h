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

// A window of another image: its procedure knows nothing of the toolkit but its messages.
class ForeignWindow {
public:
    using Procedure = std::function<LRESULT(UINT message, WPARAM wParam, LPARAM lParam)>;

    ForeignWindow(HWND parent, UINT id, Procedure procedure, const char* className = "STATIC");
    ~ForeignWindow();
    ForeignWindow(const ForeignWindow&) = delete;
    ForeignWindow& operator=(const ForeignWindow&) = delete;

    HWND handle() const { return m_window; }

private:
    static LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    Procedure m_procedure;
    WNDPROC m_super = nullptr;
    HWND m_window = nullptr;
};

// Dispatches what waits in the queue, through a pump.
void pumpWaiting();
