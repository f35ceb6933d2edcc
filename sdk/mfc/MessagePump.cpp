#include "mfc/MessagePump.h"

#include "mfc/CWnd.h"

bool toolkit::preTranslate(MSG& message, HWND stop)
{
    for (HWND window = message.hwnd; window; window = ::GetParent(window)) {
        CWnd* const object = CWnd::FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(&message))
            return true;
        if (window == stop)
            break;
    }
    return false;
}

bool toolkit::pumpMessage(bool (*filter)(MSG& message))
{
    MSG message{};
    if (::GetMessageA(&message, nullptr, 0, 0) <= 0)
        return false;
    if (!(filter && filter(message)) && !preTranslate(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
    return true;
}
