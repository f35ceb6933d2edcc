#pragma once

// Presses buttons of the next dialog of this thread, in turn, and notes when the last
// one was pressed and when the dialog's window was gone.

#include "bench/Measure.h"

#include <windows.h>

#include <vector>

class DialogClock {
public:
    explicit DialogClock(std::vector<int> buttons);
    ~DialogClock();
    DialogClock(const DialogClock&) = delete;
    DialogClock& operator=(const DialogClock&) = delete;

    // Microseconds.
    double sincePress() const { return m_pressed.elapsed(); }
    double sinceClosing() const { return m_closed.elapsed(); }

private:
    static LRESULT CALLBACK onMessage(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);
    static BOOL CALLBACK onWindow(HWND window, LPARAM);
    void press(HWND dialog);

    static DialogClock* s_pCurrent;
    std::vector<int> m_buttons;
    HHOOK m_hook;
    UINT_PTR m_timer;
    HWND m_dialog = nullptr;
    Clock m_pressed;
    Clock m_closed;
};
