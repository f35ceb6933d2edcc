#pragma once

// What a command can be routed to, and the state of a command's menu item or
// control while its owner is asked about it.
#include "mfc/MessageMap.h"

#include <cstddef>
#include <new>

// Filled instead of calling when a caller only asks whether there is a handler.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget = nullptr;
};

namespace toolkit {

// The memory of the toolkit's library; null when there is none.
CADMFC_API void* allocate(std::size_t size) noexcept;
CADMFC_API void release(void* memory) noexcept;

}  // namespace toolkit

class CADMFC_API CCmdTarget {
public:
    CCmdTarget() = default;
    CCmdTarget(const CCmdTarget&) = delete;
    CCmdTarget& operator=(const CCmdTarget&) = delete;
    virtual ~CCmdTarget();

    // One image may delete what another has made, so objects lie in the library's memory.
    static void* operator new(std::size_t size)
    {
        if (void* const memory = toolkit::allocate(size))
            return memory;
        throw std::bad_alloc();
    }
    static void operator delete(void* memory) { toolkit::release(memory); }

    // Runs the handler for a command (CN_COMMAND or a control's code) or an
    // update (CN_UPDATE_COMMAND_UI, pExtra is the CCmdUI). With pHandlerInfo,
    // reports it without calling. FALSE when there is none.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;

    // Runs the handler of the nearest class that has one. id counts for commands and parents' notifications.
    BOOL handle(int code, UINT id, toolkit::Call& call);

private:
    struct Found {
        const AFX_MSGMAP* map = nullptr;
        const AFX_MSGMAP_ENTRY* entry = nullptr;
    };
    Found find(UINT message, int code, UINT id) const;
};

class CADMFC_API CCmdUI {
public:
    virtual ~CCmdUI();

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
