#pragma once

// Who called whom, as text: one line a frame, the innermost first, with module and
// offset, which the symbols kept with a release turn into a function and a line.

#include "mfc/afx.h"

namespace Tesk {

// Of the calling thread, at most 50 frames: "module.dll + 0x1234", or the bare address where
// it is in no module.
CString describeCallStack();

}  // namespace Tesk
