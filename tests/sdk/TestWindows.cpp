#include "TestWindows.h"

#include "mfc/MessagePump.h"

#include <utility>

PlainWindow::PlainWindow(HWND parent, UINT id, Procedure procedure)
    : m_procedure(std::move(procedure)),
      m_window(::CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent,
                                 reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr))
{
    ::SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_super = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PlainWindow::windowProcedure)));
}

PlainWindow::~PlainWindow()
{
    if (::IsWindow(m_window)) {
        ::SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_super));
        ::DestroyWindow(m_window);
    }
}

LRESULT CALLBACK PlainWindow::windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const self = reinterpret_cast<PlainWindow*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    self->m_procedure(message);
    return ::CallWindowProcA(self->m_super, window, message, wParam, lParam);
}

int pumpWaiting()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
        if (!toolkit::pumpMessage())
            return static_cast<int>(message.wParam);
    return -1;
}
