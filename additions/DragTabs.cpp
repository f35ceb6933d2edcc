#include "additions/DragTabs.h"

#include "additions/OptInText.h"
#include "reactors/OpenDocuments.h"

#include <cstdlib>

namespace {

constexpr UINT_PTR kScrollTimer = 22381;
constexpr UINT kScrollInterval = 200;
constexpr int kLeftEnd = 8;  // from there on it scrolls

}  // namespace

bool CDragTabs::handle(UINT message, WPARAM wParam, CPoint point)
{
    if (message == WM_LBUTTONDOWN)
        press(point);
    if (m_pPressed == nullptr)
        return false;
    switch (message) {
    case WM_MOUSEMOVE:
        move(point);
        return m_bDragging;
    case WM_LBUTTONUP:
        drop(point);
        return false;
    case WM_TIMER:
        if (wParam == kScrollTimer)
            m_view.scroll(m_iScrolling);
        return wParam == kScrollTimer;
    case WM_CAPTURECHANGED:
        end();
        return false;
    default:
        return false;
    }
}

// The mouse is heard wherever it goes.
void CDragTabs::press(CPoint point)
{
    end();
    m_pPressed = isSwitchedOn("DragTabs") ? m_tabs.getDocument(point) : nullptr;
    m_pressed = point;
    if (m_pPressed != nullptr)
        ::SetCapture(m_tabs.m_hWnd);
}

void CDragTabs::move(CPoint point)
{
    if (!m_bDragging && std::abs(point.x - m_pressed.x) <= ::GetSystemMetrics(SM_CXDRAG) &&
        std::abs(point.y - m_pressed.y) <= ::GetSystemMetrics(SM_CYDRAG))
        return;
    if (!m_bDragging) {
        m_bDragging = true;
        m_filter.start();
        ::SetCursor(::LoadCursorA(nullptr, IDC_SIZEWE));
    }
    setScrolling(point.x < kLeftEnd ? -1 : point.x >= m_view.rightEnd() ? 1 : 0);
}

// At once, and again and again while the mouse stays at that end.
void CDragTabs::setScrolling(int iDirection)
{
    if (iDirection == m_iScrolling)
        return;
    m_iScrolling = iDirection;
    m_view.scroll(iDirection);
    if (iDirection != 0)
        ::SetTimer(m_tabs.m_hWnd, kScrollTimer, kScrollInterval, nullptr);
    else
        ::KillTimer(m_tabs.m_hWnd, kScrollTimer);
}

void CDragTabs::drop(CPoint point)
{
    const int iFrom = m_bDragging && isOpen(m_pPressed) ? m_tabs.findDocument(m_pPressed) : -1;
    const int iTo = targetAt(point);
    end();
    if (iFrom != -1 && iTo != -1 && iFrom != iTo)
        CTabOrder(m_tabs).move(iFrom, iTo);
}

// Behind the last tab is its place, too.
int CDragTabs::targetAt(CPoint point) const
{
    TCHITTESTINFO hit = {};
    hit.pt = point;
    const int iItem = m_tabs.HitTest(&hit);
    CRect area;
    m_tabs.GetClientRect(area);
    return iItem != -1 || !area.PtInRect(point) || point.x >= m_view.rightEnd() || point.x < kLeftEnd
               ? iItem
               : m_tabs.GetItemCount() - 1;
}

void CDragTabs::end()
{
    if (m_pPressed == nullptr)
        return;
    m_pPressed = nullptr;
    m_bDragging = false;
    setScrolling(0);
    m_filter.stop();
    if (::GetCapture() == m_tabs.m_hWnd)
        ::ReleaseCapture();
}

bool CDragTabs::filterMessage(const MSG& message)
{
    const bool bEscape = message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE;
    if (bEscape)
        end();
    return bEscape;
}

void CDragTabs::forget(const AcApDocument* pDocument)
{
    if (m_pPressed == pDocument)
        end();
}
