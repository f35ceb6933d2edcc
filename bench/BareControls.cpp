#include "bench/BareControls.h"

#include <commctrl.h>

BareTabs::BareTabs(HWND strip)
{
    RECT rect;
    ::GetClientRect(strip, &rect);
    const DWORD visible = ::IsWindowVisible(strip) ? WS_VISIBLE : 0;
    m_parent = ::CreateWindowExA(WS_EX_NOACTIVATE, "STATIC", "", WS_POPUP | visible, 0, 0, rect.right, rect.bottom,
                                 ::GetParent(strip), nullptr, ::GetModuleHandleA(nullptr), nullptr);
    m_tabs = ::CreateWindowExA(static_cast<DWORD>(::GetWindowLongA(strip, GWL_EXSTYLE)), WC_TABCONTROLA, "",
                               static_cast<DWORD>(::GetWindowLongA(strip, GWL_STYLE)) | WS_CHILD | WS_VISIBLE, 0, 0,
                               rect.right, rect.bottom, m_parent, nullptr, ::GetModuleHandleA(nullptr), nullptr);
    ::SendMessageA(m_tabs, WM_SETFONT, static_cast<WPARAM>(::SendMessageA(strip, WM_GETFONT, 0, 0)), FALSE);
    ::SendMessageA(m_tabs, TCM_SETIMAGELIST, 0, ::SendMessageA(strip, TCM_GETIMAGELIST, 0, 0));
}

BareTabs::~BareTabs()
{
    ::SendMessageA(m_tabs, TCM_SETIMAGELIST, 0, 0);
    ::DestroyWindow(m_parent);
}

void BareTabs::insert(const std::string& sText, int iItem, LPARAM data) const
{
    TCITEMA item = {};
    item.mask = TCIF_TEXT | TCIF_IMAGE | TCIF_PARAM;
    item.pszText = const_cast<char*>(sText.c_str());
    item.lParam = data;
    ::SendMessageA(m_tabs, TCM_INSERTITEMA, static_cast<WPARAM>(iItem), reinterpret_cast<LPARAM>(&item));
}

void BareTabs::insertAfterWalk(const std::string& sText, LPARAM data) const
{
    const auto iCount = static_cast<int>(::SendMessageA(m_tabs, TCM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < iCount; ++i) {
        TCITEMA item = {};
        item.mask = TCIF_PARAM;
        ::SendMessageA(m_tabs, TCM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
        if (item.lParam == data)
            return;
    }
    insert(sText, iCount, data);
}

void BareTabs::clear() const { ::SendMessageA(m_tabs, TCM_DELETEALLITEMS, 0, 0); }

BareMenu::BareMenu()
    : m_owner(::CreateWindowExA(WS_EX_NOACTIVATE, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 1, 1, nullptr, nullptr,
                                ::GetModuleHandleA(nullptr), nullptr))
{
}

void BareMenu::show(POINT point) const
{
    const UniqueMenu menu(::CreatePopupMenu());
    const auto append = [&](const char* sCaption) {
        ::AppendMenuA(menu.get(), sCaption != nullptr ? MF_STRING : MF_SEPARATOR, 1, sCaption);
    };
    for (const char* sCaption : {"Save", "Close", "a", "b", static_cast<const char*>(nullptr), "c", "d"})
        append(sCaption);
    ::AppendMenuA(menu.get(), MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(::CreatePopupMenu()), "e");
    for (const char* sCaption : {static_cast<const char*>(nullptr), "Options", "f"})
        append(sCaption);
    ::TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_VCENTERALIGN | TPM_RIGHTBUTTON, point.x, point.y, 0, m_owner.get(),
                     nullptr);
}
