#include "mfc/MessagePump.h"

#include "mfc/WindowMap.h"

bool AfxPreTranslate(MSG& message, HWND stop)
{
    for (HWND window = message.hwnd; window; window = ::GetParent(window)) {
        CWnd* const object = CWnd::FromHandlePermanent(window);
        const bool taken =
            object ? toolkit::guarded(FALSE, [&] { return object->PreTranslateMessage(&message); }) != FALSE
                   : ::SendMessageA(window, AfxPreTranslateMessageId(), 0, reinterpret_cast<LPARAM>(&message)) != 0;
        if (taken)
            return true;
        if (window == stop)
            break;
    }
    return false;
}

int MessagePump::run()
{
    for (;;) {
        long count = 0;
        while (!::PeekMessageA(&m_message, nullptr, 0, 0, PM_NOREMOVE) && onIdle(count))
            ++count;
        if (!pumpMessage())
            return static_cast<int>(m_message.wParam);
    }
}

bool MessagePump::pumpMessage()
{
    if (::GetMessageA(&m_message, nullptr, 0, 0) <= 0)
        return false;
    MSG message = m_message;  // a handler may run the pump again
    if (!preTranslate(message)) {
        ::TranslateMessage(&message);
        ::DispatchMessageA(&message);
    }
    return true;
}

bool MessagePump::onIdle(long) { return false; }
