#pragma once

// The name by which other machines know a path.

#include "mfc/afx.h"

namespace Tesk::Network {

// "\\server\share\..." for a full path on a mapped drive. Any other path, and one whose
// drive is not connected, is given back as it is. Never raises, asks no server.
CString getUniversalName(const CString& sPath);

}  // namespace Tesk::Network
