#pragma once

// The frames: layout of the children, menu updating, MDI.
#include "mfc/CMenu.h"
#include "mfc/CWnd.h"

class CADMFC_API CFrameWnd : public CWnd {
public:
    // Lays the children out (WM_SIZEPARENT); a call from within the pass is ignored.
    virtual void RecalcLayout(BOOL bNotify = TRUE);

    BOOL PreTranslateMessage(MSG* pMsg) override;

    HACCEL m_hAccelTable = nullptr;  // not owned
    BOOL m_bAutoMenuEnable = TRUE;   // grey menu items that nobody handles

protected:
    void OnSize(UINT nType, int cx, int cy);
    // Updates the items of a menu that is about to show.
    void OnInitMenuPopup(CMenu* pMenu, UINT nIndex, BOOL bSysMenu);

    DECLARE_MESSAGE_MAP()

private:
    bool m_inLayout = false;
};

class CMDIChildWnd;

class CADMFC_API CMDIFrameWnd : public CFrameWnd {
public:
    HWND m_hWndMDIClient = nullptr;

    // Creates the MDI client (identifier AFX_IDW_PANE_FIRST). The window menu,
    // if any, lists the children, whose commands start at firstChildId.
    BOOL CreateClient(HMENU windowMenu, UINT firstChildId = 0xFF00);

    CMDIChildWnd* MDIGetActive(BOOL* pbMaximized = nullptr) const;
    void MDIActivate(CWnd* pChild)
    {
        ::SendMessageA(m_hWndMDIClient, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(pChild->m_hWnd), 0);
    }

    BOOL PreTranslateMessage(MSG* pMsg) override;
    // The active child is asked first.
    BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo) override;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};

class CADMFC_API CMDIChildWnd : public CWnd {
public:
    // Creates a child window of the frame's MDI client and activates it.
    BOOL Create(const char* className, const char* title, CMDIFrameWnd* pFrame, DWORD dwStyle = 0);
    ~CMDIChildWnd() override;
    // An MDI child is destroyed through its client.
    BOOL DestroyWindow() override;

protected:
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
};
