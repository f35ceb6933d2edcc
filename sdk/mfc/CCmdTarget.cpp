#include "mfc/CCmdTarget.h"

#include "mfc/CMenu.h"
#include "mfc/CWnd.h"

#include <cstdlib>

void* toolkit::allocate(std::size_t size) noexcept { return std::malloc(size); }

void toolkit::release(void* memory) noexcept { std::free(memory); }

CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY none[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, none, nullptr};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const { return GetThisMessageMap(); }

CCmdTarget::Found CCmdTarget::find(UINT message, int code, UINT id) const
{
    const bool byId = message == WM_COMMAND || message == WM_NOTIFY;
    for (const AFX_MSGMAP* map = GetMessageMap(); map; map = map->base) {
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->message; ++entry) {
            if (entry->message == message && entry->code == code &&
                (!byId || (entry->firstId <= id && id <= entry->lastId)))
                return {map, entry};
        }
    }
    return {};
}

BOOL CCmdTarget::handle(int code, UINT id, toolkit::Call& call)
{
    const Found found = find(call.message, code, id);
    if (!found.entry)
        return FALSE;
    found.map->run(found.entry->handler, *this, call);
    return TRUE;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, AFX_CMDHANDLERINFO* pHandlerInfo)
{
    if (pHandlerInfo) {
        if (!find(WM_COMMAND, nCode, nID).entry)
            return FALSE;
        pHandlerInfo->pTarget = this;
        return TRUE;
    }
    toolkit::Call call;
    call.message = WM_COMMAND;
    call.id = nID;
    if (nCode == CN_UPDATE_COMMAND_UI)
        call.ui = static_cast<CCmdUI*>(pExtra);
    return handle(nCode, nID, call);
}

CCmdUI::~CCmdUI() = default;

void CCmdUI::Enable(BOOL bOn)
{
    m_bEnableChanged = TRUE;
    if (m_pMenu)
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (bOn ? MF_ENABLED : MF_GRAYED));
    if (!m_pOther || m_pOther->IsWindowEnabled() == (bOn != FALSE))
        return;
    // The focus must not stay on a control that stops taking keys.
    if (!bOn && ::GetFocus() == m_pOther->m_hWnd)
        ::SendMessageA(::GetParent(m_pOther->m_hWnd), WM_NEXTDLGCTL, 0, FALSE);
    m_pOther->EnableWindow(bOn);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* pTarget, BOOL disableIfNoHandler)
{
    m_bEnableChanged = FALSE;
    const BOOL handled = pTarget->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (disableIfNoHandler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info;
        Enable(pTarget->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return handled;
}
