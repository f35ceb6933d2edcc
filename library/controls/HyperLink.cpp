#include "library/controls/HyperLink.h"

#include "library/text/StringView.h"

#include <shellapi.h>

#include <string>

namespace {

int brightness(DWORD dwColour) { return GetRValue(dwColour) * 3 + GetGValue(dwColour) * 6 + GetBValue(dwColour); }

// The system's, unless that can hardly be read on a dialog.
DWORD linkColour()
{
    const DWORD dwLink = ::GetSysColor(COLOR_HOTLIGHT);
    const int iContrast = brightness(dwLink) - brightness(::GetSysColor(COLOR_BTNFACE));
    return iContrast > -800 && iContrast < 800 ? ::GetSysColor(COLOR_BTNTEXT) : dwLink;
}

}  // namespace

BEGIN_MESSAGE_MAP(CHyperLink, CWnd)
    ON_WM_PAINT()
    ON_MESSAGE(WM_NCHITTEST, &ThisClass::OnHitTest)
    ON_MESSAGE(WM_SETCURSOR, &ThisClass::OnSetCursor)
    ON_MESSAGE(WM_GETDLGCODE, &ThisClass::OnGetDlgCode)
    ON_MESSAGE(WM_KEYDOWN, &ThisClass::OnKeyDown)
    ON_MESSAGE(WM_LBUTTONDOWN, &ThisClass::OnButtonDown)
    ON_MESSAGE(WM_LBUTTONUP, &ThisClass::OnButtonUp)
    ON_MESSAGE(WM_SETFOCUS, &ThisClass::OnFocusChanged)
    ON_MESSAGE(WM_KILLFOCUS, &ThisClass::OnFocusChanged)
END_MESSAGE_MAP()

bool CHyperLink::Attach(CWnd* pDialog, int nID, const CString& sAddress)
{
    const HWND hControl = ::GetDlgItem(pDialog->m_hWnd, nID);
    if (hControl == nullptr || !SubclassWindow(hControl))
        return false;
    m_sTarget = getTarget(sAddress);
    SetWindowText(sAddress);
    if (m_sTarget.IsEmpty())
        return true;

    LOGFONTA description = {};
    const auto hFont = reinterpret_cast<HFONT>(SendMessage(WM_GETFONT));
    ::GetObjectA(hFont != nullptr ? hFont : ::GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
    description.lfUnderline = TRUE;
    m_font.reset(::CreateFontIndirectA(&description));
    ::SetWindowLongA(m_hWnd, GWL_STYLE, static_cast<LONG>(GetStyle() | WS_TABSTOP));
    fitToText();
    return true;
}

// So that beside the text there is no link.
void CHyperLink::fitToText()
{
    CRect rect;
    GetClientRect(rect);
    CRect needed(rect);
    const HDC hdc = ::GetDC(m_hWnd);
    const HGDIOBJ previous = ::SelectObject(hdc, m_font.get());
    CString sText;
    GetWindowText(sText);
    ::DrawTextA(hdc, sText, -1, &needed, DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT);
    ::SelectObject(hdc, previous);
    ::ReleaseDC(m_hWnd, hdc);
    if (needed.right < rect.right)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, needed.right, rect.bottom, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool CHyperLink::open() const
{
    if (m_sTarget.IsEmpty())
        return false;
    const HINSTANCE result =
        ::ShellExecuteA(::GetAncestor(m_hWnd, GA_ROOT), "open", m_sTarget, nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;
}

void CHyperLink::OnPaint()
{
    if (m_sTarget.IsEmpty()) {
        Default();
        return;
    }
    PAINTSTRUCT paint;
    if (const HDC hdc = ::BeginPaint(m_hWnd, &paint)) {
        CRect client;
        GetClientRect(client);
        drawText(hdc, client);
        ::EndPaint(m_hWnd, &paint);
    }
}

void CHyperLink::drawText(HDC hdc, RECT rect) const
{
    ::FillRect(hdc, &rect, ::GetSysColorBrush(COLOR_BTNFACE));
    const HGDIOBJ previous = ::SelectObject(hdc, m_font.get());
    ::SetBkMode(hdc, TRANSPARENT);
    ::SetTextColor(hdc, linkColour());
    CString sText;
    GetWindowText(sText);
    ::DrawTextA(hdc, sText, -1, &rect, DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
    ::SelectObject(hdc, previous);
    if (::GetFocus() == m_hWnd) {
        ::SetTextColor(hdc, ::GetSysColor(COLOR_BTNTEXT));
        ::DrawFocusRect(hdc, &rect);
    }
}

// A static text lets the mouse through unless it is told otherwise.
LRESULT CHyperLink::OnHitTest(WPARAM, LPARAM) { return m_sTarget.IsEmpty() ? Default() : HTCLIENT; }

LRESULT CHyperLink::OnSetCursor(WPARAM, LPARAM)
{
    if (m_sTarget.IsEmpty())
        return Default();
    ::SetCursor(::LoadCursorA(nullptr, reinterpret_cast<const char*>(IDC_HAND)));
    return TRUE;
}

// Enter would else press the dialog's default button.
LRESULT CHyperLink::OnGetDlgCode(WPARAM, LPARAM lParam)
{
    const LRESULT code = Default();
    const auto* pMsg = reinterpret_cast<const MSG*>(lParam);
    const bool bEnter = pMsg != nullptr && pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN;
    return bEnter && !m_sTarget.IsEmpty() ? code | DLGC_WANTMESSAGE : code;
}

LRESULT CHyperLink::OnKeyDown(WPARAM wParam, LPARAM)
{
    if (wParam != VK_SPACE && wParam != VK_RETURN)
        return Default();
    open();
    return 0;
}

LRESULT CHyperLink::OnButtonDown(WPARAM, LPARAM)
{
    SetFocus();
    ::SetCapture(m_hWnd);
    return 0;
}

LRESULT CHyperLink::OnButtonUp(WPARAM, LPARAM lParam)
{
    if (::GetCapture() != m_hWnd)
        return 0;
    ::ReleaseCapture();
    CRect client;
    GetClientRect(client);
    if (client.PtInRect(CPoint(lParam)))
        open();
    return 0;
}

LRESULT CHyperLink::OnFocusChanged(WPARAM, LPARAM)
{
    Invalidate();
    return 0;
}
