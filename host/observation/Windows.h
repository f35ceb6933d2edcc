#pragma once

// Looking at the windows of this thread from outside, and acting on them as a
// person would. Every wait is bounded.

#include <windows.h>

#include <functional>
#include <string>

namespace host::observation {

// The dialog or message box that is open and takes input; null without one.
HWND topDialog();
// Closes a dialog that nobody answers, by one of its own buttons.
void dismiss(HWND dialog);

std::string textOf(HWND window);
std::string classOf(HWND window);
// Line ends written as \n, so that a text is one line.
std::string oneLine(const std::string& text);
// The first visible window of the class among this thread's top-level windows; null without one.
HWND visibleWindow(const char* className);

// Handles messages until the condition holds; false when it does not within the time.
bool pumpUntil(DWORD milliseconds, const std::function<bool()>& condition);

// Posts a mouse message at a point of the window, with the pointer there or out of the way:
// what Windows goes on to say of it would reach the strip at any time.
enum class Pointer { There, Away };
void postMouse(HWND window, UINT message, WPARAM buttons, POINT client, Pointer pointer);

}  // namespace host::observation
