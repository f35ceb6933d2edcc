#include "additions/MiddleClick.h"

#include "additions/OptInText.h"
#include "reactors/OpenDocuments.h"

void CMiddleClick::handle(UINT message, CPoint point)
{
    AcApDocument* pPressed = m_pPressed;
    switch (message) {
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:  // of quick clicks Windows sends every second one as this
        m_pPressed = isSwitchedOn("MiddleClickCloses") ? m_tabs.getDocument(point) : nullptr;
        if (m_pPressed != nullptr)
            ::SetCapture(m_tabs.m_hWnd);  // the release is heard wherever it is
        break;
    case WM_MBUTTONUP:
        forget(pPressed);
        if (pPressed != nullptr && m_tabs.getDocument(point) == pPressed && isOpen(pPressed))
            m_tabs.closeDocument(pPressed);
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
