#pragma once

// What a command can be routed to, and the state of a command's menu item or
// control while its owner is asked about it.
#include "mfc/MessageMap.h"

// Filled instead of calling when a caller only asks whether there is a handler.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget = nullptr;
};

class CCmdTarget {
public:
    CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;
    virtual ~CCmdTarget() = default;

    // Runs the handler for a command (CN_COMMAND or a control's code) or an
    // update (CN_UPDATE_COMMAND_UI, pExtra is the CCmdUI). With pHandlerInfo,
    // reports it without calling. FALSE when there is none.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    // The nearest entry of this class or a base, or null. id counts for commands and parents' notifications.
    const AFX_MSGMAP_ENTRY* findEntry(UINT message, int code, UINT id) const;
};

class CCmdUI {
public:
    virtual ~CCmdUI() = default;

    virtual void Enable(BOOL bOn = TRUE);

    // Asks the target; where it has not spoken on enabling and `disableIfNoHandler`
    // is set, enables exactly when the target has a handler for the command.
    BOOL DoUpdate(CCmdTarget* pTarget, BOOL disableIfNoHandler);

    UINT m_nID = 0;
    UINT m_nIndex = 0;         // position in m_pMenu
    CMenu* m_pMenu = nullptr;  // a menu's item, or
    CWnd* m_pOther = nullptr;  // a dialog's control
    BOOL m_bEnableChanged = FALSE;
};
