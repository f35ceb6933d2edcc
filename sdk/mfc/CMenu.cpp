#include "mfc/CMenu.h"

#include "mfc/CWnd.h"
#include "mfc/ViewMap.h"

#include <utility>

namespace {

struct MenuView : CMenu {
    explicit MenuView(HMENU menu) { m_hMenu = menu; }
    ~MenuView() { m_hMenu = nullptr; }  // the menu is not ours to destroy
};

}  // namespace

CMenu::~CMenu() { DestroyMenu(); }

CMenu* CMenu::FromHandle(HMENU menu)
{
    static toolkit::ViewMap<HMENU, MenuView, ::IsMenu> views;
    return menu ? views.of(menu) : nullptr;
}

CMenu* toolkit::menuOf(WPARAM handle) { return CMenu::FromHandle(reinterpret_cast<HMENU>(handle)); }

BOOL CMenu::Attach(HMENU menu)
{
    if (!menu || m_hMenu)
        return FALSE;
    m_hMenu = menu;
    return TRUE;
}

HMENU CMenu::Detach() { return std::exchange(m_hMenu, nullptr); }

BOOL CMenu::DestroyMenu()
{
    const HMENU menu = Detach();
    return menu && ::DestroyMenu(menu);
}

BOOL CMenu::TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, const RECT* rect)
{
    return ::TrackPopupMenu(m_hMenu, nFlags, x, y, 0, pWnd ? pWnd->m_hWnd : nullptr, rect);
}
