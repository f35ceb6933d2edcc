#include "additions/WheelScroll.h"

#include "additions/OptInText.h"

namespace {

constexpr const char* kSwitch = "WheelScrolls";

}  // namespace

CWheelScroll::CWheelScroll(CARXMDITabs& tabs) : m_tabs(tabs)
{
    if (isSwitchedOn(kSwitch))
        m_filter.start();
}

// Windows before 10 gives the wheel to the window with the focus, wherever the mouse is.
bool CWheelScroll::filterMessage(const MSG& message)
{
    if (message.message != WM_MOUSEWHEEL)
        return false;
    const HWND hUnder = ::WindowFromPoint(CPoint(message.lParam));
    if ((hUnder != m_tabs.m_hWnd && !::IsChild(m_tabs.m_hWnd, hUnder)) || !isSwitchedOn(kSwitch))
        return false;
    const int iTurned = GET_WHEEL_DELTA_WPARAM(message.wParam);
    m_iDelta = iTurned * m_iDelta < 0 ? iTurned : m_iDelta + iTurned;  // back again a notch is a notch
    m_view.scroll(-(m_iDelta / WHEEL_DELTA));
    m_iDelta %= WHEEL_DELTA;
    return true;
}
