#pragma once

// The tooltip of the common controls. A tool is a whole window; texts are
// copied by the control.
#include "mfc/CWnd.h"

#include <commctrl.h>

class CADMFC_API CToolTipCtrl : public CWnd {
public:
    BOOL Create(CWnd* pParentWnd, DWORD dwStyle = 0);

    BOOL AddTool(CWnd* pWnd, const char* text);
    void UpdateTipText(const char* text, CWnd* pWnd, UINT nIDTool = 0);
    int GetToolCount() const { return static_cast<int>(SendMessage(TTM_GETTOOLCOUNT)); }
    void RelayEvent(MSG* pMsg) { SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(pMsg)); }
    int SetMaxTipWidth(int width) { return static_cast<int>(SendMessage(TTM_SETMAXTIPWIDTH, 0, width)); }
    BOOL SetTitle(UINT icon, const char* title)
    {
        return static_cast<BOOL>(SendMessage(TTM_SETTITLEA, icon, reinterpret_cast<LPARAM>(title)));
    }  // at most 99 bytes show
};
