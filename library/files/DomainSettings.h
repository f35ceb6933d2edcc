#pragma once

// The folder of the settings that a whole office shares.

#include "mfc/afx.h"

namespace Tesk {

// The first domain settings folder that exists; when none does, the last one tried. A new
// value that an administrator registered for the machine becomes the user's first.
CString getDomainSettingsFolder();

}  // namespace Tesk
