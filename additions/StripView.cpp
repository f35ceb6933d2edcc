#include "additions/StripView.h"

CRect CStripView::placeOf(int iItem) const
{
    CRect place;
    m_tabs.GetItemRect(iItem, place);
    return place;
}

// To the left: its place is negative there or, on some systems, empty.
bool CStripView::isScrolledOut(int iItem) const
{
    const CRect place = placeOf(iItem);
    return place.IsRectEmpty() || place.left < 0;
}

int CStripView::first() const
{
    int iFirst = 0;
    for (int iEnd = isScrolledOut(0) ? m_tabs.GetItemCount() : 0; iFirst < iEnd;) {
        const int iMiddle = (iFirst + iEnd) / 2;
        if (isScrolledOut(iMiddle))
            iFirst = iMiddle + 1;
        else
            iEnd = iMiddle;
    }
    return iFirst;
}

int CStripView::rightEnd() const
{
    CRect area;
    m_tabs.GetClientRect(area);
    const HWND hArrows = ::FindWindowExA(m_tabs.m_hWnd, nullptr, UPDOWN_CLASSA, nullptr);
    if (!::IsWindowVisible(hArrows))
        return area.right;
    CRect arrows;
    ::GetWindowRect(hArrows, arrows);
    m_tabs.ScreenToClient(arrows);
    return arrows.left;
}

// As an arrow does. Some systems go one tab whatever the number.
void CStripView::scrollTo(int iFirst) const
{
    m_tabs.SendMessage(WM_HSCROLL, static_cast<WPARAM>(MAKELONG(SB_THUMBPOSITION, iFirst)));
}

void CStripView::scroll(int iTabs) const
{
    int iFirst = first();
    for (; iTabs < 0 && iFirst > 0; ++iTabs)
        scrollTo(--iFirst);
    for (; iTabs > 0 && !lastShows(); --iTabs)
        scrollTo(++iFirst);
}

void CStripView::show(int iItem) const
{
    const int iFirst = first();
    if (iItem < iFirst)
        scroll(iItem - iFirst);
    for (int i = iFirst; i < iItem && placeOf(iItem).right > rightEnd(); ++i)
        scroll(1);
}

void CStripView::useRoom() const
{
    for (int iFirst = first(); iFirst > 0 && lastShows(); --iFirst) {
        scrollTo(iFirst - 1);
        if (!lastShows()) {
            scrollTo(iFirst);
            return;
        }
    }
}
