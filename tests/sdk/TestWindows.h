#pragma once

// Windows that the toolkit's tests share.
#include "mfc/MessagePump.h"
#include "mfc/afxwin.h"

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

// Dispatches what waits in the queue, through the pump. The code of WM_QUIT, or -1.
inline int pumpWaiting()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
        if (!toolkit::pumpMessage())
            return static_cast<int>(message.wParam);
    return -1;
}
