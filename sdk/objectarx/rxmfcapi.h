#pragma once

// The host's main frame, owned by the host, and its message loop.

#include "objectarx/adesk.h"

class CMDIFrameWnd;

ADESK_API CMDIFrameWnd* acedGetAcadFrame();

// Asked about each message that the host has taken from its queue, before anybody gets it.
// TRUE ends the message there.
using AcedFilterWinMsgFn = BOOL(MSG* pMsg);
// FALSE when it is registered already.
ADESK_API BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn* pfn);
// FALSE when it is not registered.
ADESK_API BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn* pfn);
