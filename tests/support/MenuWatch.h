#pragma once

#include <windows.h>

#include <functional>
#include <utility>

// Does something once in the loop of the menu that comes up, if one does.
class MenuWatch {
public:
    explicit MenuWatch(std::function<void()> whileUp)
        : m_whileUp(std::move(whileUp)), m_timer(::SetTimer(nullptr, 0, 20, &onTimer))
    {
        s_pCurrent = this;
    }
    ~MenuWatch() { ::KillTimer(nullptr, m_timer); }
    MenuWatch(const MenuWatch&) = delete;
    MenuWatch& operator=(const MenuWatch&) = delete;

    // The menu's; null when there is none.
    static HWND window() { return ::FindWindowA("#32768", nullptr); }
    bool wasUp() const { return m_whileUp == nullptr; }

private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD)
    {
        if (!s_pCurrent->wasUp() && ::IsWindowVisible(window()))
            std::exchange(s_pCurrent->m_whileUp, nullptr)();
    }

    static inline MenuWatch* s_pCurrent = nullptr;
    std::function<void()> m_whileUp;
    UINT_PTR m_timer;
};
