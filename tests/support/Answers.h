#pragma once

// Answers the boxes and dialogs that come up on this thread, from within their own
// message loops, as a person would: by looking at the window and pressing buttons.

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

struct Box {
    std::string title;
    std::string text;
    HICON icon;
};

class Answers {
public:
    using Handler = std::function<void(HWND dialog)>;

    // The handler gets the options dialog again and again, until it closes it; without a
    // handler the dialog is cancelled. Message boxes are read and closed; what is to
    // happen in the first one's message loop comes before.
    explicit Answers(Handler onOptions = {}, std::function<void()> inFirstBox = {});
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    const std::vector<Box>& boxes() const { return m_boxes; }
    // What the assertion boxes report: a line "File: expression" each.
    std::string assertions() const;
    int optionsShown() const { return m_optionsShown; }

    static bool isChecked(HWND dialog, int id);
    // By the next call the dialog has updated its controls.
    static void press(HWND dialog, int id);

private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);
    static BOOL CALLBACK look(HWND window, LPARAM self);
    void answer(HWND dialog);

    static Answers* s_pCurrent;
    Handler m_onOptions;
    std::function<void()> m_inFirstBox;
    UINT_PTR m_timer;
    std::vector<Box> m_boxes;
    int m_optionsShown = 0;
    HWND m_answered = nullptr;
};
