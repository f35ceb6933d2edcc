#pragma once

// The direction of a dialog's data exchange and the exchanges themselves.
#include "mfc/Toolkit.h"

#include <windows.h>

class CWnd;

class CADMFC_API CDataExchange {
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate) : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}
    HWND PrepareCtrl(int nIDC) const;  // the control, or null when the dialog has none of that number

    BOOL m_bSaveAndValidate;  // TRUE: controls to members
    CWnd* m_pDlgWnd;
};

// A control that is not there leaves its member as it is.
CADMFC_API void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
// The index within the group that starts at nIDC (a WS_GROUP control), -1 for none.
CADMFC_API void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
