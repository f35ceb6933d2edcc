#pragma once

// A menu: owned by the object, but for the views that come from FromHandle.
#include "mfc/Toolkit.h"

#include <windows.h>

class CWnd;

class CADMFC_API CMenu {
public:
    CMenu() = default;
    ~CMenu();  // destroys the menu with its submenus
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;

    HMENU m_hMenu = nullptr;

    // A view that lives as long as the menu. Null for null.
    static CMenu* FromHandle(HMENU menu);

    BOOL CreateMenu() { return Attach(::CreateMenu()); }
    BOOL CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
    BOOL Attach(HMENU menu);  // FALSE for null or when this one has a menu already
    HMENU Detach();           // gives it away, as to the menu that it was appended to
    BOOL DestroyMenu();       // FALSE when there is none

    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, const char* text = nullptr)
    {
        return ::AppendMenuA(m_hMenu, nFlags, nIDNewItem, text);
    }
    int GetMenuItemCount() const { return ::GetMenuItemCount(m_hMenu); }
    UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }  // UINT(-1): a submenu
    CMenu* GetSubMenu(int position) const { return FromHandle(::GetSubMenu(m_hMenu, position)); }
    BOOL GetMenuItemInfo(UINT item, MENUITEMINFOA* info, BOOL byPosition = FALSE) const
    {
        return ::GetMenuItemInfoA(m_hMenu, item, byPosition, info);
    }
    UINT GetMenuState(UINT item, UINT nFlags) const { return ::GetMenuState(m_hMenu, item, nFlags); }
    // The previous state, or UINT(-1) when there is no such item.
    UINT EnableMenuItem(UINT item, UINT nFlags) { return static_cast<UINT>(::EnableMenuItem(m_hMenu, item, nFlags)); }
    DWORD CheckMenuItem(UINT item, UINT nFlags) { return ::CheckMenuItem(m_hMenu, item, nFlags); }
    // With TPM_RETURNCMD the chosen command or 0, else success.
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, const RECT* rect = nullptr);
};
