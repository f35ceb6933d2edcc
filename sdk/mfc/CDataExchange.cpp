#include "mfc/CDataExchange.h"

#include "mfc/CWnd.h"

HWND CDataExchange::PrepareCtrl(int nIDC) const { return ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC); }

void DDX_Check(CDataExchange* pDX, int nIDC, int& value)
{
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (!control)
        return;
    if (pDX->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageA(control, BM_GETCHECK, 0, 0));
    else
        ::SendMessageA(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
}

void DDX_Radio(CDataExchange* pDX, int nIDC, int& value)
{
    HWND control = pDX->PrepareCtrl(nIDC);
    if (!control)
        return;
    int found = -1;
    int index = 0;
    do {
        if (::SendMessageA(control, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) {
            if (pDX->m_bSaveAndValidate) {
                if (::SendMessageA(control, BM_GETCHECK, 0, 0) == BST_CHECKED)
                    found = index;
            } else {
                ::SendMessageA(control, BM_SETCHECK, index == value ? BST_CHECKED : BST_UNCHECKED, 0);
            }
            ++index;
        }
        control = ::GetWindow(control, GW_HWNDNEXT);
    } while (control && !(::GetWindowLongA(control, GWL_STYLE) & WS_GROUP));
    if (pDX->m_bSaveAndValidate)
        value = found;
}
