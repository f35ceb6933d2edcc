#include "mfc/CFrameWnd.h"

#include "mfc/WindowMap.h"

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
    ON_WM_SIZE()
    ON_WM_INITMENUPOPUP()
END_MESSAGE_MAP()

namespace {

bool isKey(const MSG& message) { return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST; }

}  // namespace

void CFrameWnd::RecalcLayout(BOOL)
{
    if (m_inLayout || !m_hWnd)
        return;
    m_inLayout = true;
    RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST);
    m_inLayout = false;
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    return m_hAccelTable && isKey(*pMsg) && ::TranslateAcceleratorA(m_hWnd, m_hAccelTable, pMsg) != 0;
}

// The default handling would give the whole client area to the MDI client.
void CFrameWnd::OnSize(UINT nType, int, int)
{
    if (nType != SIZE_MINIMIZED)
        RecalcLayout();
}

void CFrameWnd::OnInitMenuPopup(CMenu* pMenu, UINT, BOOL bSysMenu)
{
    if (bSysMenu || !pMenu)
        return;
    constexpr UINT firstSystemCommand = 0xF000;  // these and the window list are nobody's to handle
    for (int position = 0; position < pMenu->GetMenuItemCount(); ++position) {
        const UINT id = pMenu->GetMenuItemID(position);
        if (id == 0 || id == static_cast<UINT>(-1))
            continue;
        CCmdUI state;
        state.m_nID = id;
        state.m_nIndex = static_cast<UINT>(position);
        state.m_pMenu = pMenu;
        state.DoUpdate(this, m_bAutoMenuEnable && id < firstSystemCommand);
    }
}

BOOL CMDIFrameWnd::CreateClient(HMENU windowMenu, UINT firstChildId)
{
    CLIENTCREATESTRUCT structure = {windowMenu, firstChildId};
    m_hWndMDIClient = ::CreateWindowExA(
        WS_EX_CLIENTEDGE, "MDICLIENT", "",
        WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | WS_VSCROLL | WS_HSCROLL, 0, 0, 0, 0, m_hWnd,
        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(AFX_IDW_PANE_FIRST)), AfxGetInstanceHandle(), &structure);
    return m_hWndMDIClient != nullptr;
}

CMDIChildWnd* CMDIFrameWnd::MDIGetActive(BOOL* pbMaximized) const
{
    if (pbMaximized)
        *pbMaximized = FALSE;
    const auto active = reinterpret_cast<HWND>(
        ::SendMessageA(m_hWndMDIClient, WM_MDIGETACTIVE, 0, reinterpret_cast<LPARAM>(pbMaximized)));
    return dynamic_cast<CMDIChildWnd*>(FromHandlePermanent(active));
}

BOOL CMDIFrameWnd::PreTranslateMessage(MSG* pMsg)
{
    if (CFrameWnd::PreTranslateMessage(pMsg))
        return TRUE;
    return m_hWndMDIClient && isKey(*pMsg) && ::TranslateMDISysAccel(m_hWndMDIClient, pMsg);
}

BOOL CMDIFrameWnd::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    CMDIChildWnd* const active = m_hWndMDIClient ? MDIGetActive() : nullptr;
    return (active && active->OnCmdMsg(nID, nCode, pExtra, pHandlerInfo)) ||
           CFrameWnd::OnCmdMsg(nID, nCode, pExtra, pHandlerInfo);
}

LRESULT CMDIFrameWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::DefFrameProcA(m_hWnd, m_hWndMDIClient, message, wParam, lParam);
}

CMDIChildWnd::~CMDIChildWnd() { CMDIChildWnd::DestroyWindow(); }

BOOL CMDIChildWnd::Create(const char* className, const char* title, CMDIFrameWnd* pFrame, DWORD dwStyle)
{
    if (m_hWnd)
        return FALSE;
    MDICREATESTRUCTA structure = {className,     title,         AfxGetInstanceHandle(),
                                  CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                                  CW_USEDEFAULT, dwStyle,       0};
    const WindowMap::Creation creation(*this);
    return ::SendMessageA(pFrame->m_hWndMDIClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&structure)) != 0;
}

BOOL CMDIChildWnd::DestroyWindow()
{
    if (!m_hWnd)
        return FALSE;
    ::SendMessageA(::GetParent(m_hWnd), WM_MDIDESTROY, reinterpret_cast<WPARAM>(m_hWnd), 0);
    return m_hWnd == nullptr;
}

LRESULT CMDIChildWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::DefMDIChildProcA(m_hWnd, message, wParam, lParam);
}
