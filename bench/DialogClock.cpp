#include "bench/DialogClock.h"

DialogClock* DialogClock::s_pCurrent = nullptr;

DialogClock::DialogClock(const std::vector<int>& buttons)
    : m_hook(::SetWindowsHookExA(WH_CALLWNDPROC, &onMessage, nullptr, ::GetCurrentThreadId()))
{
    s_pCurrent = this;
    m_answers.emplace([this, buttons](HWND dialog) {
        if (m_dialog != nullptr)
            return;
        m_dialog = dialog;
        for (const int id : buttons) {
            m_pressed.restart();
            Answers::press(dialog, id);
        }
    });
}

DialogClock::~DialogClock()
{
    ::UnhookWindowsHookEx(m_hook);
    s_pCurrent = nullptr;
}

LRESULT CALLBACK DialogClock::onMessage(int code, WPARAM wParam, LPARAM lParam)
{
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (message.message == WM_NCDESTROY && message.hwnd == s_pCurrent->m_dialog) {
        s_pCurrent->m_closed.restart();
        // What follows is measured without us.
        s_pCurrent->m_answers.reset();
        ::UnhookWindowsHookEx(s_pCurrent->m_hook);
        return 0;
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}
