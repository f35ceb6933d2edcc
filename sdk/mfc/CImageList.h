#pragma once

// An owned image list.
#include "mfc/Toolkit.h"

#include <windows.h>
#include <commctrl.h>

class CADMFC_API CImageList {
public:
    CImageList() = default;
    ~CImageList();
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;

    HIMAGELIST m_hImageList = nullptr;
    HIMAGELIST GetSafeHandle() const { return m_hImageList; }

    // FALSE when this one has a list already or none could be made.
    BOOL Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow);
    BOOL DeleteImageList();  // FALSE when there is none
    int Add(HICON icon);     // the icon's index, or -1; the icon stays the caller's
    BOOL Remove(int index);  // -1 removes all
    int GetImageCount() const;
};
