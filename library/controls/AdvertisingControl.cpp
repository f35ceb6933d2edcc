#include "library/controls/AdvertisingControl.h"

#include "library/system/Handles.h"

namespace {

// The GUI font, bold; whoever asks owns it.
UniqueFont createCaptionFont()
{
    LOGFONTA description = {};
    ::GetObjectA(::GetStockObject(DEFAULT_GUI_FONT), sizeof description, &description);
    description.lfWeight = FW_BOLD;
    return UniqueFont(::CreateFontIndirectA(&description));
}

void drawLogo(HDC hdc, RECT rect)
{
    ::FillRect(hdc, &rect, ::GetSysColorBrush(COLOR_BTNFACE));
    ::InflateRect(&rect, -5, -5);
    ::FillRect(hdc, &rect, ::GetSysColorBrush(COLOR_HIGHLIGHT));

    const UniqueFont font = createCaptionFont();
    const HGDIOBJ previous = ::SelectObject(hdc, font.get());
    ::SetBkMode(hdc, TRANSPARENT);
    ::SetTextColor(hdc, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
    ::DrawTextA(hdc, "Zavik", -1, &rect, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    ::SelectObject(hdc, previous);
}

}  // namespace

BEGIN_MESSAGE_MAP(CAdvertisingControl, CWnd)
    ON_WM_PAINT()
END_MESSAGE_MAP()

// OnPaint covers everything: the class has no background.
bool CAdvertisingControl::Create(CWnd* pParent, UINT nID)
{
    return CWnd::Create(AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, ::LoadCursorA(nullptr, IDC_ARROW)), "Zavik",
                        WS_CHILD | WS_CLIPSIBLINGS, CRect(), pParent, nID) != FALSE;
}

void CAdvertisingControl::OnPaint()
{
    PAINTSTRUCT paint;
    if (const HDC hdc = ::BeginPaint(m_hWnd, &paint)) {
        CRect client;
        GetClientRect(client);
        drawLogo(hdc, client);
        ::EndPaint(m_hWnd, &paint);
    }
}
