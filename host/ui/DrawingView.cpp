#include "host/ui/DrawingView.h"

#include "host/application/Application.h"
#include "host/ui/MainFrame.h"

namespace host {

BEGIN_MESSAGE_MAP(DrawingView, CMDIChildWnd)
    ON_WM_PAINT()
    ON_WM_CLOSE()
END_MESSAGE_MAP()

bool DrawingView::create(CMDIFrameWnd& frame)
{
    const char* const windowClass =
        AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, ::LoadCursorA(nullptr, IDC_CROSS),
                            static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)), ::LoadIconA(nullptr, IDI_APPLICATION));
    return Create(windowClass, m_document.title().c_str(), &frame) != FALSE;
}

void DrawingView::refresh()
{
    m_stale = true;
    SetWindowText(m_document.title().c_str());
    Invalidate();
}

void DrawingView::OnPaint()
{
    PAINTSTRUCT paint;
    const HDC dc = ::BeginPaint(m_hWnd, &paint);
    if (std::exchange(m_stale, false))
        m_display.read(m_document.drawing());
    CRect area;
    GetClientRect(area);
    m_display.paint(dc, area);
    ::EndPaint(m_hWnd, &paint);
}

void DrawingView::OnClose()
{
    m_application.closeDocument(m_document);  // which ends this object
}

// What is typed over a drawing goes to the command line.
BOOL DrawingView::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->hwnd == m_hWnd && pMsg->message == WM_CHAR && pMsg->wParam >= ' ') {
        m_application.frame().typeCommand(std::string(1, static_cast<char>(pMsg->wParam)));
        return TRUE;
    }
    return CMDIChildWnd::PreTranslateMessage(pMsg);
}

LRESULT DrawingView::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_MOUSEACTIVATE && !m_application.documents().isDocumentActivationEnabled() &&
        m_application.documents().active() != &m_document)
        return MA_NOACTIVATEANDEAT;
    if (message == WM_MDIACTIVATE && reinterpret_cast<HWND>(lParam) == m_hWnd) {
        const LRESULT result = CMDIChildWnd::WindowProc(message, wParam, lParam);
        m_application.documents().windowActivated(m_document);
        return result;
    }
    return CMDIChildWnd::WindowProc(message, wParam, lParam);
}

}  // namespace host
