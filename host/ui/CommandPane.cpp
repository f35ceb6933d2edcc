#include "host/ui/CommandPane.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr LONG kPaneHeight = 96;
constexpr int kInputHeight = 22;
constexpr UINT kPaneId = 0xE801;
constexpr UINT_PTR kShowTimer = 1;
constexpr UINT kShowDelay = 50;
constexpr LRESULT kLongestHistory = 24000;  // an edit control of the old kind holds 30,000 characters

HWND createEdit(HWND parent, DWORD style, UINT_PTR id)
{
    const HWND edit = ::CreateWindowExA(0, "EDIT", "", WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                                        reinterpret_cast<HMENU>(id), AfxGetInstanceHandle(), nullptr);
    ::SendMessageA(edit, WM_SETFONT, reinterpret_cast<WPARAM>(::GetStockObject(ANSI_FIXED_FONT)), FALSE);
    return edit;
}

}  // namespace

BEGIN_MESSAGE_MAP(CommandPane, CWnd)
    ON_MESSAGE(WM_SIZEPARENT, &CommandPane::OnSizeParent)
    ON_MESSAGE(WM_SETFOCUS, &CommandPane::OnSetFocus)
    ON_MESSAGE(WM_TIMER, &CommandPane::OnTimer)
    ON_WM_SIZE()
END_MESSAGE_MAP()

bool CommandPane::create(CWnd& frame, std::function<void(const std::string&)> onLine)
{
    m_onLine = std::move(onLine);
    const char* const windowClass =
        AfxRegisterWndClass(0, ::LoadCursorA(nullptr, IDC_ARROW), reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    if (!Create(windowClass, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, CRect(), &frame, kPaneId))
        return false;
    m_history = createEdit(m_hWnd, ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL | WS_VSCROLL | WS_BORDER, 1);
    m_input = createEdit(m_hWnd, ES_AUTOHSCROLL | WS_BORDER, 2);
    return m_history != nullptr && m_input != nullptr;
}

void CommandPane::show(std::string_view text)
{
    if (m_pending.empty())
        ::SetTimer(m_hWnd, kShowTimer, kShowDelay, nullptr);
    for (const char c : text) {
        if (c == '\n')
            m_pending += '\r';
        if (c != '\r')
            m_pending += c;
    }
    if (m_pending.size() > kLongestHistory / 2)
        append(std::exchange(m_pending, {}));
}

LRESULT CommandPane::OnTimer(WPARAM, LPARAM)
{
    ::KillTimer(m_hWnd, kShowTimer);
    append(std::exchange(m_pending, {}));
    return 0;
}

void CommandPane::append(const std::string& lines)
{
    LRESULT length = ::SendMessageA(m_history, WM_GETTEXTLENGTH, 0, 0);
    if (length + static_cast<LRESULT>(lines.size()) > kLongestHistory) {
        ::SendMessageA(m_history, EM_SETSEL, 0, length / 2);
        ::SendMessageA(m_history, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(""));
        length = ::SendMessageA(m_history, WM_GETTEXTLENGTH, 0, 0);
    }
    ::SendMessageA(m_history, EM_SETSEL, static_cast<WPARAM>(length), length);
    ::SendMessageA(m_history, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(lines.c_str()));
}

void CommandPane::clear()
{
    std::string().swap(m_pending);
    ::SetWindowTextA(m_history, "");
}

void CommandPane::type(std::string_view text)
{
    ::SetFocus(m_input);
    for (const char character : text)
        ::SendMessageA(m_input, WM_CHAR, static_cast<unsigned char>(character), 1);
}

BOOL CommandPane::PreTranslateMessage(MSG* pMsg)
{
    if (pMsg->hwnd != m_input || pMsg->message != WM_KEYDOWN)
        return FALSE;
    if (pMsg->wParam == VK_ESCAPE) {
        ::SetWindowTextA(m_input, "");
        return TRUE;
    }
    if (pMsg->wParam != VK_RETURN)
        return FALSE;
    char line[1024];
    const int length = ::GetWindowTextA(m_input, line, sizeof line);
    ::SetWindowTextA(m_input, "");
    m_onLine(std::string(line, static_cast<std::size_t>(length)));
    return TRUE;
}

LRESULT CommandPane::OnSizeParent(WPARAM, LPARAM lParam)
{
    auto& layout = *reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
    CRect band = layout.rect;
    band.top = std::max(band.top, band.bottom - kPaneHeight);  // a small frame has less room
    layout.rect.bottom = band.top;
    AfxRepositionWindow(&layout, m_hWnd, &band);
    return 0;
}

void CommandPane::OnSize(UINT, int width, int height)
{
    const int historyHeight = std::max(height - kInputHeight, 0);
    ::MoveWindow(m_history, 0, 0, width, historyHeight, TRUE);
    ::MoveWindow(m_input, 0, historyHeight, width, kInputHeight, TRUE);
}

LRESULT CommandPane::OnSetFocus(WPARAM, LPARAM)
{
    ::SetFocus(m_input);
    return 0;
}

}  // namespace host
