#include "host/observation/Tips.h"

#include "host/observation/Windows.h"

#include <commctrl.h>
#include <map>

namespace host::observation {

namespace {

struct Watched {
    WNDPROC original;
    std::string title;
    int icon = 0;
};

std::map<HWND, Watched>& watched()
{
    static std::map<HWND, Watched> windows;
    return windows;
}

std::string narrow(const wchar_t* sText)
{
    char text[512] = "";
    ::WideCharToMultiByte(CP_ACP, 0, sText, -1, text, sizeof text, nullptr, nullptr);
    return text;
}

LRESULT CALLBACK watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto entry = watched().find(window);
    const WNDPROC original = entry->second.original;
    if (message == TTM_SETTITLEA || message == TTM_SETTITLEW)
        entry->second.icon = static_cast<int>(wParam);
    if (message == TTM_SETTITLEA && lParam != 0)
        entry->second.title = reinterpret_cast<const char*>(lParam);
    else if (message == TTM_SETTITLEW && lParam != 0)
        entry->second.title = narrow(reinterpret_cast<const wchar_t*>(lParam));
    else if (message == WM_NCDESTROY) {
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
        watched().erase(entry);
    }
    return ::CallWindowProcA(original, window, message, wParam, lParam);
}

LRESULT CALLBACK onCreate(int code, WPARAM wParam, LPARAM lParam)
{
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && classOf(window) == TOOLTIPS_CLASSA && !watched().contains(window)) {
        const LONG_PTR original = ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&watch));
        watched()[window] = {reinterpret_cast<WNDPROC>(original), {}, 0};
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

Tips::Tips() : m_hook(::SetWindowsHookExA(WH_CBT, &onCreate, nullptr, ::GetCurrentThreadId())) {}

Tips::~Tips()
{
    ::UnhookWindowsHookEx(m_hook);
    for (const auto& [window, entry] : watched())
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(entry.original));
    watched().clear();
}

bool Tips::exist() { return !watched().empty(); }

int Tips::iconOf(HWND tip)
{
    const auto entry = watched().find(tip);
    return entry != watched().end() ? entry->second.icon : 0;
}

bool Tips::isShown() { return visibleWindow(TOOLTIPS_CLASSA) != nullptr; }

void Tips::hide()
{
    if (const HWND tip = visibleWindow(TOOLTIPS_CLASSA))
        ::SendMessageA(tip, TTM_POP, 0, 0);
}

std::string Tips::describe()
{
    const HWND tip = visibleWindow(TOOLTIPS_CLASSA);
    if (tip == nullptr)
        return "tip: none\n";
    // TTM_GETTEXT ends at 80 characters; the window's own text is what is shown.
    char text[4096] = "";
    ::SendMessageA(tip, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    const auto entry = watched().find(tip);
    const std::string sTitle = entry != watched().end() ? entry->second.title : std::string();
    return "tip: title=\"" + oneLine(sTitle) + "\" text=\"" + oneLine(text) + "\"\n";
}

}  // namespace host::observation
