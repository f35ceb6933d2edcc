#pragma once

// The open dialog or message box: its controls, and pressing them by mouse or keyboard.

#include <windows.h>

#include <string>

namespace host::observation {

// The DIALOG command's lines: `dialog: "title"`, then a line a control; `dialog: none`.
std::string describeDialog();
// Clicks the control of the open dialog. The click is handled after this returns.
// Throws CommandError when there is no dialog, no such control, or it is disabled.
void press(int id);
// A key for the open dialog's focus: TAB, SPACE, ENTER, ESCAPE, UP or DOWN. It is
// handled after this returns. Throws CommandError without a dialog or such a key.
void pressKey(const std::string& sName);

}  // namespace host::observation
