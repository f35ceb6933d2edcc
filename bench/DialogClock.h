#pragma once

// Presses buttons of the next options dialog, in turn, and notes when the last one was
// pressed and when the dialog's window was gone.

#include "bench/Measure.h"
#include "tests/support/Answers.h"

#include <windows.h>

#include <optional>
#include <vector>

class DialogClock {
public:
    explicit DialogClock(const std::vector<int>& buttons);
    DialogClock(const DialogClock&) = delete;
    DialogClock& operator=(const DialogClock&) = delete;

    // Microseconds.
    double sincePress() const { return m_pressed.elapsed(); }
    double sinceClosing() const { return m_closed.elapsed(); }

private:
    static LRESULT CALLBACK onMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

    static DialogClock* s_pCurrent;
    WNDPROC m_procedure = nullptr;
    Clock m_pressed;
    Clock m_closed;
    std::optional<Answers> m_answers;
};
