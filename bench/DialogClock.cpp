#include "bench/DialogClock.h"

DialogClock* DialogClock::s_pCurrent = nullptr;

DialogClock::DialogClock(const std::vector<int>& buttons)
{
    s_pCurrent = this;
    m_answers.emplace([this, buttons](HWND dialog) {
        if (m_procedure != nullptr)
            return;
        m_procedure = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&onMessage)));
        for (const int id : buttons) {
            m_pressed.restart();
            Answers::press(dialog, id);
        }
    });
}

LRESULT CALLBACK DialogClock::onMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCDESTROY) {
        s_pCurrent->m_closed.restart();
        // What follows is measured without us.
        s_pCurrent->m_answers.reset();
    }
    return ::CallWindowProcA(s_pCurrent->m_procedure, dialog, message, wParam, lParam);
}
