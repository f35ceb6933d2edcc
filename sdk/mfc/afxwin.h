#pragma once

// Windows, menus, dialogs, frames and the message pump.
#include "mfc/CCmdTarget.h"
#include "mfc/CDataExchange.h"
#include "mfc/CDialog.h"
#include "mfc/CFrameWnd.h"
#include "mfc/CMenu.h"
#include "mfc/CWnd.h"
#include "mfc/MessagePump.h"
#include "mfc/afx.h"
