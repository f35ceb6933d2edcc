#pragma once

// The tab control of the common controls.
#include "mfc/CImageList.h"
#include "mfc/CWnd.h"

class CADMFC_API CTabCtrl : public CWnd {
public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);

    int GetItemCount() const { return static_cast<int>(SendMessage(TCM_GETITEMCOUNT)); }
    int InsertItem(int index, TCITEMA* item);  // its index, or -1
    BOOL DeleteItem(int index) { return static_cast<BOOL>(SendMessage(TCM_DELETEITEM, static_cast<WPARAM>(index))); }
    BOOL DeleteAllItems() { return static_cast<BOOL>(SendMessage(TCM_DELETEALLITEMS)); }
    BOOL GetItem(int index, TCITEMA* item) const;
    BOOL SetItem(int index, TCITEMA* item);
    BOOL GetItemRect(int index, RECT* rect) const;
    int GetCurSel() const { return static_cast<int>(SendMessage(TCM_GETCURSEL)); }
    int SetCurSel(int index)
    {
        return static_cast<int>(SendMessage(TCM_SETCURSEL, static_cast<WPARAM>(index)));
    }                                        // without notifications
    int HitTest(TCHITTESTINFO* info) const;  // the tab at a client point, or -1
    void SetImageList(CImageList* images);   // not owned
};
