#pragma once

// Registers commands with the host.

#include "objectarx/aced.h"

namespace Tesk {

// Adds the command under one name, global and local, and returns the host's status.
// iPrimaryFlags is ACRX_CMD_MODAL or ACRX_CMD_TRANSPARENT; the name is shorter than
// 31 characters. What breaks this is asserted and passed on to the host.
Acad::ErrorStatus registerCommand(const char* sCommand, const char* sGroupName, AcRxFunctionPtr functionAddr,
                                  Adesk::Int32 iPrimaryFlags, Adesk::Int32 iSecondaryFlags = 0,
                                  HINSTANCE hResourceHandle = nullptr);

}  // namespace Tesk
