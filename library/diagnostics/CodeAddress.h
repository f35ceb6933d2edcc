#pragma once

// Names code addresses for reports a person waits for: what is in memory is
// looked at, and no debugging information is loaded.

#include "mfc/afx.h"

namespace Tesk {

// "module.dll + 0x1234", with " (function + 0x12)" where the module exports a
// function close before the address; the bare address where it is in no module.
CString describeAddress(const void* pAddress);

}  // namespace Tesk
