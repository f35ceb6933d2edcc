#include "additions/MiddleClick.h"

#include "additions/OptInText.h"
#include "reactors/OpenDocuments.h"

#include <utility>

void CMiddleClick::handle(UINT message, CPoint point)
{
    switch (message) {
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:  // of quick clicks Windows sends every second one as this
        press(point);
        break;
    case WM_MBUTTONUP:
        release(point);
        break;
    case WM_CAPTURECHANGED:
        m_pPressed = nullptr;
        break;
    default:
        break;
    }
}

void CMiddleClick::forget(const AcApDocument* pDocument)
{
    if (m_pPressed == nullptr || m_pPressed != pDocument)
        return;
    m_pPressed = nullptr;
    ::ReleaseCapture();
}

// The release is heard wherever it is.
void CMiddleClick::press(CPoint point)
{
    m_pPressed = isSwitchedOn("MiddleClickCloses") ? m_tabs.getDocument(point) : nullptr;
    if (m_pPressed != nullptr)
        ::SetCapture(m_tabs.m_hWnd);
}

void CMiddleClick::release(CPoint point)
{
    AcApDocument* pPressed = std::exchange(m_pPressed, nullptr);
    if (pPressed == nullptr)
        return;
    ::ReleaseCapture();
    if (m_tabs.getDocument(point) == pPressed && isOpen(pPressed))
        m_tabs.closeDocument(pPressed);
}
