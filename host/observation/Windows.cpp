#include "host/observation/Windows.h"

#include "host/application/Application.h"

namespace host::observation {

namespace {

struct Search {
    std::function<bool(HWND)> wanted;
    HWND found;
};

BOOL CALLBACK examine(HWND window, LPARAM parameter)
{
    Search& search = *reinterpret_cast<Search*>(parameter);
    if (!search.wanted(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

HWND firstWindow(std::function<bool(HWND)> wanted)
{
    Search search{std::move(wanted), nullptr};
    ::EnumThreadWindows(::GetCurrentThreadId(), &examine, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

}  // namespace

HWND topDialog()
{
    return firstWindow([](HWND window) {
        return ::IsWindowVisible(window) && ::IsWindowEnabled(window) && classOf(window) == "#32770";
    });
}

void dismiss(HWND dialog)
{
    for (const int id : {IDCANCEL, IDNO, IDOK, IDABORT})
        if (::GetDlgItem(dialog, id) != nullptr) {
            ::PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(id), 0);
            return;
        }
    ::PostMessageA(dialog, WM_CLOSE, 0, 0);
}

std::string textOf(HWND window)
{
    const LRESULT length = ::SendMessageA(window, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<std::size_t>(length) * 2 + 2, '\0');
    const LRESULT copied = ::SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

std::string classOf(HWND window)
{
    char name[64] = "";
    ::GetClassNameA(window, name, sizeof name);
    return name;
}

std::string oneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        if (c == '\n')
            line += "\\n";
        else if (c != '\r')
            line += c;
    }
    return line;
}

HWND visibleWindow(const char* className)
{
    return firstWindow([className](HWND window) { return ::IsWindowVisible(window) && classOf(window) == className; });
}

bool pumpUntil(DWORD milliseconds, const std::function<bool()>& condition)
{
    const DWORD start = ::GetTickCount();
    for (;;) {
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
            if (!Application::instance()->pumpMessage())
                return false;
        if (condition())
            return true;
        const DWORD spent = ::GetTickCount() - start;
        if (spent >= milliseconds)
            return false;
        const DWORD step = milliseconds - spent < 10 ? milliseconds - spent : 10;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, step, QS_ALLINPUT);
    }
}

void postMouse(HWND window, UINT message, WPARAM buttons, POINT client, Pointer pointer)
{
    POINT screen = {0, 0};
    if (pointer == Pointer::There) {
        screen = client;
        ::ClientToScreen(window, &screen);
    }
    ::SetCursorPos(screen.x, screen.y);
    ::PostMessageA(window, message, buttons, MAKELPARAM(client.x, client.y));
}

}  // namespace host::observation
