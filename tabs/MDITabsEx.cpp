#include "tabs/MDITabsEx.h"

#include "library/diagnostics/Prerelease.h"
#include "library/registry/Registry.h"
#include "library/system/Handles.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"

#include <tchar.h>

namespace {

// Wide enough that only line feeds break a text.
constexpr int kMaxTipWidth = 32767;

}  // namespace

BEGIN_MESSAGE_MAP(CMDITabsEx, CMDITabs)
END_MESSAGE_MAP()

CMDITabsEx::~CMDITabsEx() = default;

void CMDITabsEx::Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle)
{
    CMDITabs::Create(pMainFrame, dwStyle);
    m_bToolTips = (dwStyle & MDITABS_TOOLTIPS) != 0;
    if (m_bToolTips)
        createToolTip(pMainFrame);
    addDrawingIcon();
}

void CMDITabsEx::createToolTip(CMDIFrameWnd* pMainFrame)
{
    m_pToolTip = std::make_unique<CToolTipCtrl>();
    TESK_VERIFY(m_pToolTip->Create(pMainFrame, TTS_BALLOON));
    // Else the control drops ampersands, and ends the text at a tab character.
    ::SetWindowLongA(m_pToolTip->m_hWnd, GWL_STYLE, static_cast<LONG>(m_pToolTip->GetStyle() | TTS_NOPREFIX));
    m_pToolTip->SetMaxTipWidth(kMaxTipWidth);
    m_pToolTip->SetTitle(TTI_INFO, CMDITabSettings::getTooltipTitle(""));
    m_pToolTip->SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(DEFAULT_GUI_FONT)), TRUE);
    TESK_VERIFY(m_pToolTip->AddTool(this, _T("XXXX default line 1\nXXXX default line 2")));
}

void CMDITabsEx::addDrawingIcon()
{
    if (!m_bImages || m_images.GetImageCount() != 0 || !CTabOptions::readIcons())
        return;
    HICON hDwgIcon = nullptr;
    TESK_VERIFY(Tesk::Registry::IconFromExtension(_T(".dwg"), hDwgIcon, true));
    const UniqueIcon owner(hDwgIcon);
    TESK_VERIFY(m_images.Add(hDwgIcon) != -1);
}

BOOL CMDITabsEx::DestroyWindow()
{
    if (m_pToolTip != nullptr) {
        TESK_ASSERT(m_bToolTips);
        m_pToolTip->DestroyWindow();
        m_pToolTip.reset();
    }
    return CMDITabs::DestroyWindow();
}

BOOL CMDITabsEx::PreTranslateMessage(MSG* pMsg)
{
    if (m_bToolTips) {
        TESK_ASSERT(m_pToolTip != NULL);
        if (m_pToolTip != nullptr && m_pToolTip->m_hWnd != nullptr)
            m_pToolTip->RelayEvent(pMsg);
    }
    return CMDITabs::PreTranslateMessage(pMsg);
}
