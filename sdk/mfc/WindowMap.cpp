#include "mfc/WindowMap.h"

#include <unordered_map>
#include <utility>

namespace {

std::unordered_map<HWND, CWnd*>& objects()
{
    static std::unordered_map<HWND, CWnd*> map;
    return map;
}

}  // namespace

CWnd* WindowMap::creating = nullptr;

CWnd* WindowMap::find(HWND window)
{
    const auto entry = objects().find(window);
    return entry == objects().end() ? nullptr : entry->second;
}

bool WindowMap::attach(CWnd& object, HWND window, WNDPROC super) noexcept
{
    try {
        objects()[window] = &object;
    } catch (...) {
        return false;
    }
    object.m_hWnd = window;
    object.m_super = super;
    return true;
}

void WindowMap::detach(CWnd& object)
{
    const HWND window = object.m_hWnd;
    const auto current = reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(window, GWLP_WNDPROC));
    if (isOwnProcedure(current))
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(object.m_super));
    objects().erase(window);
    object.m_hWnd = nullptr;
    object.m_super = nullptr;
    object.m_current = nullptr;
}

LRESULT CALLBACK WindowMap::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    CWnd* object = find(window);
    if (!object && creating) {
        CWnd* const created = std::exchange(creating, nullptr);
        if (attach(*created, window, &::DefWindowProcA))
            object = created;
    }
    if (!object)
        return ::DefWindowProcA(window, message, wParam, lParam);

    const MSG current = {window, message, wParam, lParam, 0, {0, 0}};
    const MSG* const outer = object->m_current;
    object->m_current = &current;
    const LRESULT result = object->WindowProc(message, wParam, lParam);
    if (find(window) != object)  // the handler let go of the window, perhaps with its object
        return result;
    object->m_current = outer;
    if (message == WM_NCDESTROY) {
        detach(*object);
        object->PostNcDestroy();
    }
    return result;
}
