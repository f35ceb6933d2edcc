#pragma once

// The message loop of a program, and the offering of messages to
// PreTranslateMessage that it shares with modal loops.
#include <windows.h>

// Offers the message to msg.hwnd and its parents in turn, up to `stop`
// (included), whichever image they belong to. True when one of them took it.
bool AfxPreTranslate(MSG& message, HWND stop = nullptr);

class MessagePump {
public:
    virtual ~MessagePump() = default;

    // Runs until WM_QUIT and returns its code. With no message waiting, calls
    // onIdle with 0, 1, 2… until it returns false.
    int run();
    // Handles the next message, waiting for it. False for WM_QUIT.
    bool pumpMessage();

protected:
    virtual bool onIdle(long count);  // true: there is more to do
    virtual bool preTranslate(MSG& message) { return AfxPreTranslate(message); }

private:
    MSG m_message{};
};
