#pragma once

// The open dialog or message box: its controls, and pressing them.

#include <windows.h>

#include <string>

namespace host::observation {

// The DIALOG command's lines: `dialog: "title"`, then a line a control; `dialog: none`.
std::string describeDialog();
// Clicks the control of the open dialog. The click is handled after this returns.
// Throws CommandError when there is no dialog, no such control, or it is disabled.
void press(int id);

} // namespace host::observation
