// The image that the toolkit is linked into: its module handle and its window classes.
#include "mfc/WindowMap.h"

#include <list>

namespace {

HINSTANCE resourceHandle = nullptr;

// Windows does not free a library's window classes when it unloads.
struct WindowClass {
    CString name;
    bool registered = false;
    explicit WindowClass(const CString& className) : name(className) {}
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass()
    {
        if (registered)
            ::UnregisterClassA(name, AfxGetInstanceHandle());
    }
};

}  // namespace

HINSTANCE AfxGetInstanceHandle()
{
    static const char anchor = 0;
    MEMORY_BASIC_INFORMATION information{};
    ::VirtualQuery(&anchor, &information, sizeof information);
    return static_cast<HINSTANCE>(information.AllocationBase);
}

HINSTANCE AfxGetResourceHandle() { return resourceHandle ? resourceHandle : AfxGetInstanceHandle(); }

void AfxSetResourceHandle(HINSTANCE instance) { resourceHandle = instance; }

const char* AfxRegisterWndClass(UINT classStyle, HCURSOR cursor, HBRUSH background, HICON icon)
{
    static std::list<WindowClass> classes;
    CString name;
    name.Format("ZavikToolkit:%x:%p:%p:%p", classStyle, static_cast<void*>(cursor), static_cast<void*>(background),
                static_cast<void*>(icon));
    for (const WindowClass& known : classes) {
        if (known.name == name)
            return known.name;
    }
    WNDCLASSA description{};
    description.style = classStyle;
    description.lpfnWndProc = &WindowMap::procedure;
    description.hInstance = AfxGetInstanceHandle();
    description.hCursor = cursor;
    description.hbrBackground = background;
    description.hIcon = icon;
    description.lpszClassName = name;
    WindowClass& added = classes.emplace_back(name);
    added.registered = ::RegisterClassA(&description) != 0;
    return added.name;
}

int AfxMessageBox(const char* text, UINT nType) { return ::MessageBoxA(::GetActiveWindow(), text, nullptr, nType); }
