#include "mfc/CImageList.h"

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    if (m_hImageList)
        return FALSE;
    m_hImageList.reset(::ImageList_Create(cx, cy, nFlags, nInitial, nGrow));
    return m_hImageList ? TRUE : FALSE;
}

BOOL CImageList::DeleteImageList() { return m_hImageList ? m_hImageList.reset() : FALSE; }

int CImageList::Add(HICON icon) { return ::ImageList_ReplaceIcon(m_hImageList.get(), -1, icon); }

BOOL CImageList::Remove(int index) { return ::ImageList_Remove(m_hImageList.get(), index); }

int CImageList::GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList.get()); }
