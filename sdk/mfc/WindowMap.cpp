#include "mfc/WindowMap.h"

#include <unordered_map>

namespace {

// Without an object: a window that we let go of while somebody else's
// procedure, which calls ours, lay over it.
struct Entry {
    CWnd* object;
    WNDPROC super;
};

std::unordered_map<HWND, Entry>& entries()
{
    static std::unordered_map<HWND, Entry> map;
    return map;
}

AfxExceptionHook exceptionHook = nullptr;

LRESULT failureResult(const MSG& message)
{
    if (message.message == WM_PAINT)
        ::ValidateRect(message.hwnd, nullptr);  // or it would come again for ever
    return message.message == WM_CREATE ? -1 : 0;
}

}  // namespace

CWnd* WindowMap::creating = nullptr;

CWnd* WindowMap::find(HWND window)
{
    const auto entry = entries().find(window);
    return entry == entries().end() ? nullptr : entry->second.object;
}

void WindowMap::attach(CWnd& object, HWND window, WNDPROC super)
{
    entries()[window] = {&object, super};
    object.m_hWnd = window;
    object.m_super = super;
}

void WindowMap::detach(CWnd& object)
{
    const HWND window = object.m_hWnd;
    const auto current = reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(window, GWLP_WNDPROC));
    const bool outermost = isOwnProcedure(current);
    if (outermost) {
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(object.m_super));
        entries().erase(window);
    } else {
        entries()[window].object = nullptr;
    }
    object.m_hWnd = nullptr;
    object.m_super = nullptr;
    object.m_current = nullptr;
}

LRESULT CALLBACK WindowMap::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    CWnd* object = find(window);
    if (!object && creating && !entries().contains(window)) {
        object = creating;
        creating = nullptr;
        attach(*object, window, &::DefWindowProcA);
    }
    if (!object)
        return forgotten(window, message, wParam, lParam);
    if (message == AfxPreTranslateMessageId())
        return toolkit::guarded<LRESULT>(FALSE,
                                         [&] { return object->PreTranslateMessage(reinterpret_cast<MSG*>(lParam)); });

    const MSG current = {window, message, wParam, lParam, 0, {0, 0}};
    const MSG* const outer = object->m_current;
    object->m_current = &current;
    const LRESULT result = dispatch(*object, current);
    if (find(window) != object)  // the handler let go of the window, perhaps with its object
        return result;
    object->m_current = outer;
    if (message == WM_NCDESTROY) {
        detach(*object);
        entries().erase(window);
        toolkit::guarded(0, [&] {
            object->PostNcDestroy();
            return 0;
        });
    }
    return result;
}

LRESULT WindowMap::dispatch(CWnd& object, const MSG& message) noexcept
{
    LRESULT result = 0;
    const bool done = toolkit::guarded(false, [&] {
        result = object.WindowProc(message.message, message.wParam, message.lParam);
        return true;
    });
    return done ? result : failureResult(message);
}

LRESULT WindowMap::forgotten(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto entry = entries().find(window);
    if (entry == entries().end())
        return ::DefWindowProcA(window, message, wParam, lParam);
    const WNDPROC super = entry->second.super;
    if (message == WM_NCDESTROY)
        entries().erase(entry);
    return ::CallWindowProcA(super, window, message, wParam, lParam);
}

UINT AfxPreTranslateMessageId()
{
    static const UINT id = ::RegisterWindowMessageA("ZavikToolkit.PreTranslateMessage");
    return id;
}

void AfxSetExceptionHook(AfxExceptionHook hook) { exceptionHook = hook; }

void toolkit::reportException(CException* exception) noexcept
{
    try {
        if (exceptionHook) {
            exceptionHook(*exception);
        } else {
            char text[512] = "";
            exception->GetErrorMessage(text, sizeof text);
            reportException(text);
        }
    } catch (...) {
        // A report that fails is lost; the exception below is freed all the same.
    }
    exception->Delete();
}

void toolkit::reportException(const char* what) noexcept
{
    ::OutputDebugStringA("Exception in a window procedure: ");
    ::OutputDebugStringA(what);
    ::OutputDebugStringA("\n");
}
