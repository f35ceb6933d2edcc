#pragma once

// The host's main frame, owned by the host.

#include "objectarx/adesk.h"

class CMDIFrameWnd;

ADESK_API CMDIFrameWnd* acedGetAcadFrame();
