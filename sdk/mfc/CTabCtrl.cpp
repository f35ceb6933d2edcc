#include "mfc/CTabCtrl.h"

BOOL CTabCtrl::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID)
{
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
    ::InitCommonControlsEx(&controls);
    return CWnd::Create(WC_TABCONTROLA, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CTabCtrl::InsertItem(int index, TCITEMA* item)
{
    return static_cast<int>(SendMessage(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
}

BOOL CTabCtrl::GetItem(int index, TCITEMA* item) const
{
    return static_cast<BOOL>(SendMessage(TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
}

BOOL CTabCtrl::SetItem(int index, TCITEMA* item)
{
    return static_cast<BOOL>(SendMessage(TCM_SETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
}

BOOL CTabCtrl::GetItemRect(int index, RECT* rect) const
{
    return static_cast<BOOL>(SendMessage(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(rect)));
}

int CTabCtrl::HitTest(TCHITTESTINFO* info) const
{
    return static_cast<int>(SendMessage(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
}

void CTabCtrl::SetImageList(CImageList* images)
{
    SendMessage(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images ? images->GetSafeHandle() : nullptr));
}
