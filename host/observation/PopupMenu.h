#pragma once

// Opens a window's context menu with the right mouse button, reads it while it
// shows, and chooses an item or escapes, with keys.

#include <windows.h>

#include <functional>
#include <string>

namespace host::observation {

class PopupMenu {
public:
    // Item 0 escapes. The action, if any, runs while the menu with all its submenus
    // entered once shows.
    explicit PopupMenu(UINT item, std::function<void()> whileOpen = {})
        : m_item(item), m_whileOpen(std::move(whileOpen))
    {
    }
    ~PopupMenu();
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;

    // Right-clicks at the point, in the window's client coordinates, and returns
    // when the menu is gone. Throws CommandError when the item is not in the menu,
    // or the menu does not answer.
    void rightClick(HWND window, POINT client);
    // The same for what opens a menu otherwise.
    void watch(HWND window, POINT client, const std::function<void()>& open);
    static bool isOpen();
    // A menu showed.
    bool opened() const { return m_opened; }
    // A line an item, and one of where it stands first: its left edge and its middle, from the click.
    const std::string& items() const { return m_items; }

private:
    static void CALLBACK onTimer(HWND, UINT, UINT_PTR, DWORD);
    void step();
    void read();
    void enterSubmenus();
    void choose();
    bool moveTo(HMENU menu, int position);
    void key(WPARAM virtualKey);

    static PopupMenu* s_pActive;

    UINT m_item;
    std::function<void()> m_whileOpen;
    HWND m_owner = nullptr;
    POINT m_click = {};  // on the screen
    HMENU m_menu = nullptr;
    UINT_PTR m_timer = 0;
    std::string m_place;
    std::string m_items;
    std::string m_error;
    bool m_opened = false;
    bool m_read = false;
    int m_submenu = 0;  // position of the submenu to enter next
    int m_steps = 0;
    bool m_inStep = false;
    bool m_settled = false;
};

}  // namespace host::observation
