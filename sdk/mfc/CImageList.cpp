#include "mfc/CImageList.h"

#include <utility>

CImageList::~CImageList() { DeleteImageList(); }

BOOL CImageList::Create(int cx, int cy, UINT nFlags, int nInitial, int nGrow)
{
    if (m_hImageList)
        return FALSE;
    m_hImageList = ::ImageList_Create(cx, cy, nFlags, nInitial, nGrow);
    return m_hImageList != nullptr;
}

BOOL CImageList::DeleteImageList()
{
    const HIMAGELIST list = std::exchange(m_hImageList, nullptr);
    return list && ::ImageList_Destroy(list);
}

int CImageList::Add(HICON icon) { return ::ImageList_ReplaceIcon(m_hImageList, -1, icon); }

BOOL CImageList::Remove(int index) { return ::ImageList_Remove(m_hImageList, index); }

int CImageList::GetImageCount() const { return ::ImageList_GetImageCount(m_hImageList); }
