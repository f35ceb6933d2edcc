#pragma once

// What the strip's figures are set against: a tab control and a menu without anything
// of ours about them.

#include "library/system/Handles.h"
#include "mfc/afxcmn.h"

#include <windows.h>

#include <string>

// As large as the strip's control, with its styles, font and icons, in a window of its own.
class BareTabs {
public:
    explicit BareTabs(HWND strip);
    ~BareTabs();
    BareTabs(const BareTabs&) = delete;
    BareTabs& operator=(const BareTabs&) = delete;

    void insert(const std::string& sText, int iItem, LPARAM data) const;
    // Looks at every item's data first, then inserts at the end.
    void insertAfterWalk(const std::string& sText, LPARAM data) const;
    void clear() const;
    HWND window() const { return m_tabs; }

private:
    HWND m_parent;
    HWND m_tabs;
};

// With the items of the strip's context menu, all that can be switched on, for a window of
// its own. The list of drawings is empty, as it is in the strip's until it opens.
class BareMenu {
public:
    BareMenu();

    HWND owner() const { return m_owner.get(); }
    // At a screen point; returns when the menu is gone.
    void show(POINT point) const;

private:
    UniqueWindow m_owner;
};
