#include "host/observation/PopupMenu.h"

#include "host/commands/Command.h"
#include "host/observation/Windows.h"

#include <utility>

namespace host::observation {

namespace {

constexpr UINT kInterval = 10;
constexpr int kMostSteps = 400;
constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU
constexpr char kMenuClass[] = "#32768";

HMENU shownMenu()
{
    const HWND window = visibleWindow(kMenuClass);
    return window != nullptr ? reinterpret_cast<HMENU>(::SendMessageA(window, kGetMenu, 0, 0)) : nullptr;
}

MENUITEMINFOA itemAt(HMENU menu, int position, char* caption, UINT size)
{
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = caption;
    info.cch = size;
    ::GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info);
    return info;
}

// A submenu's own item has no identifier and shows 0.
std::string describe(HMENU menu, const std::string& sIndent)
{
    std::string lines;
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i) {
        char caption[512] = "";
        const MENUITEMINFOA info = itemAt(menu, i, caption, sizeof caption);
        if ((info.fType & MFT_SEPARATOR) != 0) {
            lines += sIndent + "item -\n";
            continue;
        }
        lines += sIndent + "item " + std::to_string(info.hSubMenu != nullptr ? 0 : info.wID) + ": \"" +
                 oneLine(caption) + "\" enabled=" + ((info.fState & MFS_DISABLED) == 0 ? "1" : "0") +
                 ((info.fState & MFS_CHECKED) != 0 ? " checked=1" : "") + "\n";
        if (info.hSubMenu != nullptr)
            lines += describe(info.hSubMenu, sIndent + "  ");
    }
    return lines;
}

int positionOf(HMENU menu, UINT id)
{
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i)
        if (::GetSubMenu(menu, i) == nullptr && ::GetMenuItemID(menu, i) == id)
            return i;
    return -1;
}

bool isHighlighted(HMENU menu, int position)
{
    return (::GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & MF_HILITE) != 0;
}

bool anyHighlighted(HMENU menu)
{
    for (int i = 0; i < ::GetMenuItemCount(menu); ++i)
        if (isHighlighted(menu, i))
            return true;
    return false;
}

}  // namespace

PopupMenu* PopupMenu::s_pActive = nullptr;

PopupMenu::~PopupMenu()
{
    if (m_timer != 0)
        ::KillTimer(nullptr, m_timer);
    s_pActive = nullptr;
}

void PopupMenu::rightClick(HWND window, POINT client)
{
    watch(window, client, [&] {
        postMouse(window, WM_RBUTTONDOWN, MK_RBUTTON, client, Pointer::Away);
        postMouse(window, WM_RBUTTONUP, 0, client, Pointer::Away);
        // While a menu is open, it is its own loop that handles messages.
        const auto handled = [] { return true; };
        pumpUntil(0, handled);
        if (!m_opened) {
            // Not every control turns a right click into the request for a menu.
            ::PostMessageA(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), MAKELPARAM(m_click.x, m_click.y));
            pumpUntil(0, handled);
        }
    });
}

void PopupMenu::watch(HWND window, POINT client, const std::function<void()>& open)
{
    m_owner = ::GetAncestor(window, GA_ROOT);  // the window itself may go while the menu shows
    m_click = client;
    ::ClientToScreen(window, &m_click);
    s_pActive = this;
    m_timer = ::SetTimer(nullptr, 0, kInterval, &PopupMenu::onTimer);
    open();
    ::KillTimer(nullptr, std::exchange(m_timer, 0));
    s_pActive = nullptr;
    if (!m_error.empty())
        throw CommandError(m_error);
}

bool PopupMenu::isOpen() { return visibleWindow(kMenuClass) != nullptr; }

void CALLBACK PopupMenu::onTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_pActive != nullptr && !std::exchange(s_pActive->m_inStep, true)) {
        s_pActive->step();
        if (s_pActive != nullptr)
            s_pActive->m_inStep = false;
    }
}

// One step a timer tick, so that the menu handles each key before the next.
void PopupMenu::step()
{
    if (!m_opened) {
        m_menu = shownMenu();
        m_opened = m_menu != nullptr;
        RECT place = {};
        ::GetWindowRect(visibleWindow(kMenuClass), &place);
        m_items = m_place = "menu: left=" + std::to_string(place.left - m_click.x) +
                            " middle=" + std::to_string((place.top + place.bottom) / 2 - m_click.y) + "\n";
        return;
    }
    if (!isOpen())
        return;
    if (++m_steps > kMostSteps) {
        m_error = "The menu does not answer.";
        ::EndMenu();
    } else if (m_submenu < ::GetMenuItemCount(m_menu)) {
        enterSubmenus();
    } else if (!m_read) {
        read();
    } else {
        choose();
    }
}

// A menu may change its items when it is about to show, so each submenu is opened once.
void PopupMenu::enterSubmenus()
{
    const HMENU submenu = ::GetSubMenu(m_menu, m_submenu);
    if (submenu == nullptr) {
        ++m_submenu;
    } else if (anyHighlighted(submenu)) {
        if (m_whileOpen && !std::exchange(m_settled, true))
            return;  // it is painted before the next step
        ++m_submenu;
        if (m_whileOpen)
            std::exchange(m_whileOpen, nullptr)();
        key(VK_LEFT);
    } else if (moveTo(m_menu, m_submenu)) {
        key(VK_RIGHT);
    }
}

void PopupMenu::read()
{
    m_read = true;
    m_items = m_place + describe(m_menu, "");
    if (m_whileOpen)
        std::exchange(m_whileOpen, nullptr)();
}

void PopupMenu::choose()
{
    if (m_item == 0) {
        key(VK_ESCAPE);
        return;
    }
    HMENU menu = m_menu;
    int position = positionOf(menu, m_item);
    for (int i = 0; position < 0 && i < ::GetMenuItemCount(m_menu); ++i) {
        menu = ::GetSubMenu(m_menu, i);
        position = menu != nullptr ? positionOf(menu, m_item) : -1;
        if (position >= 0 && !anyHighlighted(menu)) {
            if (moveTo(m_menu, i))
                key(VK_RIGHT);
            return;
        }
    }
    if (position < 0) {
        m_error = "The menu has no item " + std::to_string(m_item) + ".";
        m_item = 0;
    } else if ((::GetMenuState(menu, static_cast<UINT>(position), MF_BYPOSITION) & (MF_GRAYED | MF_DISABLED)) != 0) {
        m_error = "The item " + std::to_string(m_item) + " is disabled.";
        m_item = 0;
    } else if (moveTo(menu, position)) {
        read();  // its submenu has been opened twice by now
        key(VK_RETURN);
    }
}

// True when the item is highlighted, else one key nearer.
bool PopupMenu::moveTo(HMENU menu, int position)
{
    if (isHighlighted(menu, position))
        return true;
    key(VK_DOWN);
    return false;
}

void PopupMenu::key(WPARAM virtualKey)
{
    ::PostMessageA(m_owner, WM_KEYDOWN, virtualKey, 1);
    ::PostMessageA(m_owner, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001u));
}

}  // namespace host::observation
