#include "bench/DialogClock.h"

#include <cstring>
#include <utility>

DialogClock* DialogClock::s_pCurrent = nullptr;

DialogClock::DialogClock(std::vector<int> buttons)
    : m_buttons(std::move(buttons)),
      m_hook(::SetWindowsHookExA(WH_CALLWNDPROC, &onMessage, nullptr, ::GetCurrentThreadId())),
      m_timer(::SetTimer(nullptr, 0, 10, &onTimer))
{
    s_pCurrent = this;
}

DialogClock::~DialogClock()
{
    ::KillTimer(nullptr, m_timer);
    ::UnhookWindowsHookEx(m_hook);
    s_pCurrent = nullptr;
}

LRESULT CALLBACK DialogClock::onMessage(int code, WPARAM wParam, LPARAM lParam)
{
    const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (message.message == WM_NCDESTROY && message.hwnd == s_pCurrent->m_dialog) {
        s_pCurrent->m_closed.restart();
        // What follows is measured without us.
        ::KillTimer(nullptr, s_pCurrent->m_timer);
        ::UnhookWindowsHookEx(s_pCurrent->m_hook);
        return 0;
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK DialogClock::onTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_pCurrent != nullptr && s_pCurrent->m_dialog == nullptr)
        ::EnumThreadWindows(::GetCurrentThreadId(), &onWindow, 0);
}

BOOL CALLBACK DialogClock::onWindow(HWND window, LPARAM)
{
    char name[16] = "";
    ::GetClassNameA(window, name, sizeof name);
    if (std::strcmp(name, "#32770") != 0 || !::IsWindowVisible(window))
        return TRUE;
    s_pCurrent->press(window);
    return FALSE;
}

void DialogClock::press(HWND dialog)
{
    m_dialog = dialog;
    for (const int id : m_buttons) {
        m_pressed.restart();
        ::SendMessageA(::GetDlgItem(dialog, id), BM_CLICK, 0, 0);
    }
}
