#include "tabs/MDITabs.h"

#include "library/diagnostics/Prerelease.h"

#include <algorithm>

namespace {

constexpr UINT kControlId = 42;
constexpr UINT kLogoId = 43;
constexpr int kIconSize = 16;
constexpr int kBandHeight = 20 + 6;
// The control reaches this far under the drawings, so that no border shows between.
constexpr int kOverlap = 2;

}  // namespace

BEGIN_MESSAGE_MAP(CMDITabs, CTabCtrl)
    ON_MESSAGE(WM_SIZEPARENT, &ThisClass::OnSizeParent)
END_MESSAGE_MAP()

CMDITabs::~CMDITabs() = default;

void CMDITabs::Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle)
{
    m_bTop = (dwStyle & MDITABS_TOP) != 0;
    m_iMinViews = (dwStyle & MDITABS_DISCREET) != 0 ? 2 : 1;

    CTabCtrl::Create(WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TCS_FOCUSNEVER | TCS_FORCEICONLEFT |
                         (m_bTop ? 0U : static_cast<DWORD>(TCS_BOTTOM)),
                     CRect(), pMainFrame, kControlId);
    ModifyStyleEx(0, WS_EX_CLIENTEDGE);
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), TRUE);
    ::SetWindowPos(m_hWnd, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);

    m_bImages = (dwStyle & MDITABS_IMAGES) != 0;
    if (m_bImages)
        createImages();
    m_wndLogo.Create(pMainFrame, kLogoId);
}

void CMDITabs::createImages()
{
    if (m_images.GetSafeHandle() == nullptr)
        m_images.Create(kIconSize, kIconSize, ILC_COLOR32 | ILC_MASK, 1, 1);
    else
        m_images.Remove(-1);
    SetImageList(&m_images);
}

BOOL CMDITabs::DestroyWindow()
{
    if (m_images.GetSafeHandle() != nullptr)
        TESK_VERIFY(m_images.DeleteImageList());
    m_wndLogo.DestroyWindow();
    return CTabCtrl::DestroyWindow();
}

LRESULT CMDITabs::OnSizeParent(WPARAM, LPARAM lParam)
{
    if (GetItemCount() < m_iMinViews) {
        ShowWindow(SW_HIDE);
        m_wndLogo.ShowWindow(SW_HIDE);
        return 0;
    }

    auto* pLayout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    const int iHeight = kBandHeight + (m_bImages ? 1 : 0);
    CRect band(pLayout->rect);
    if (m_bTop)
        pLayout->rect.top = band.bottom = band.top + iHeight;
    else
        pLayout->rect.bottom = band.top = band.bottom - iHeight;

    if (pLayout->hDWP != nullptr) {
        const LONG lSplit = std::max(band.left, band.right - m_wndLogo.getWidth());
        const CRect tabs(band.left, band.top - (m_bTop ? 0 : kOverlap), lSplit, band.bottom + (m_bTop ? kOverlap : 0));
        const CRect logo(lSplit, band.top, band.right, band.bottom);
        AfxRepositionWindow(pLayout, m_hWnd, tabs);
        AfxRepositionWindow(pLayout, m_wndLogo.m_hWnd, logo);
    }
    ShowWindow(SW_SHOW);
    m_wndLogo.ShowWindow(SW_SHOW);
    return 0;
}
