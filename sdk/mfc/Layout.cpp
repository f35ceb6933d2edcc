// The layout pass of a frame: bars take their bands, one window gets the rest.
#include "mfc/CWnd.h"

void AfxRepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND window, const RECT* rect)
{
    if (!layout->hDWP)
        return;
    RECT now;
    ::GetWindowRect(window, &now);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&now), 2);
    if (::EqualRect(&now, rect))
        return;
    layout->hDWP = ::DeferWindowPos(layout->hDWP, window, nullptr, rect->left, rect->top, rect->right - rect->left,
                                    rect->bottom - rect->top, SWP_NOACTIVATE | SWP_NOZORDER);
}

void CWnd::RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag, RECT* pRectParam,
                          const RECT* pRectClient)
{
    AFX_SIZEPARENTPARAMS layout{};
    layout.bStretch = TRUE;
    if (pRectClient)
        layout.rect = *pRectClient;
    else
        ::GetClientRect(m_hWnd, &layout.rect);
    if (nFlag != reposQuery)
        layout.hDWP = ::BeginDeferWindowPos(8);

    HWND leftOver = nullptr;
    for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        const UINT id = LOWORD(::GetDlgCtrlID(child));
        if (id == nIDLeftOver)
            leftOver = child;
        else if (id >= nIDFirst && id <= nIDLast && FromHandlePermanent(child))
            ::SendMessageA(child, WM_SIZEPARENT, 0, reinterpret_cast<LPARAM>(&layout));
    }
    if (nFlag == reposQuery) {
        if (pRectParam)
            *pRectParam = layout.rect;
        return;
    }
    if (leftOver)
        AfxRepositionWindow(&layout, leftOver, &layout.rect);
    if (layout.hDWP)
        ::EndDeferWindowPos(layout.hDWP);
}
