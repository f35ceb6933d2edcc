#include "TestWindows.h"

#include <utility>

ForeignWindow::ForeignWindow(HWND parent, UINT id, Procedure procedure, const char* className)
    : m_procedure(std::move(procedure)),
      m_window(::CreateWindowExA(0, className, "", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent,
                                 reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr))
{
    ::SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_super = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ForeignWindow::windowProcedure)));
}

ForeignWindow::~ForeignWindow()
{
    if (::IsWindow(m_window)) {
        ::SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_super));
        ::DestroyWindow(m_window);
    }
}

LRESULT CALLBACK ForeignWindow::windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const self = reinterpret_cast<ForeignWindow*>(::GetWindowLongPtrA(window, GWLP_USERDATA));
    const LRESULT result = self->m_procedure(message, wParam, lParam);
    return result ? result : ::CallWindowProcA(self->m_super, window, message, wParam, lParam);
}

void pumpWaiting()
{
    MessagePump pump;
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) && pump.pumpMessage()) {
    }
}
