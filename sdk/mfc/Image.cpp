// The program's and the resources' module, and the window classes.
#include "mfc/WindowMap.h"

#include <cstdio>
#include <list>
#include <string>

namespace {

HINSTANCE resourceHandle = nullptr;

}  // namespace

HINSTANCE AfxGetInstanceHandle() { return ::GetModuleHandleA(nullptr); }

HINSTANCE AfxGetResourceHandle() { return resourceHandle ? resourceHandle : AfxGetInstanceHandle(); }

void AfxSetResourceHandle(HINSTANCE instance) { resourceHandle = instance; }

const char* AfxRegisterWndClass(UINT classStyle, HCURSOR cursor, HBRUSH background, HICON icon)
{
    static std::list<std::string> classes;
    char name[100];
    std::snprintf(name, sizeof name, "ZavikToolkit:%x:%p:%p:%p", classStyle, static_cast<void*>(cursor),
                  static_cast<void*>(background), static_cast<void*>(icon));
    for (const std::string& known : classes) {
        if (known == name)
            return known.c_str();
    }
    WNDCLASSA description{};
    description.style = classStyle;
    description.lpfnWndProc = &WindowMap::procedure;
    description.hInstance = AfxGetInstanceHandle();
    description.hCursor = cursor;
    description.hbrBackground = background;
    description.hIcon = icon;
    description.lpszClassName = name;
    if (!::RegisterClassA(&description))
        return nullptr;
    try {
        return classes.emplace_back(name).c_str();
    } catch (...) {
        ::UnregisterClassA(name, AfxGetInstanceHandle());
        return nullptr;
    }
}
