#include "mfc/CWnd.h"

#include "mfc/CDataExchange.h"
#include "mfc/ViewMap.h"
#include "mfc/WindowMap.h"

#include <optional>

namespace {

struct WindowView : CWnd {
    explicit WindowView(HWND window) { m_hWnd = window; }
    ~WindowView() override { m_hWnd = nullptr; }  // the window is not ours to destroy
};

bool isPushButton(HWND control)
{
    return (::SendMessageA(control, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0;
}

}  // namespace

CWnd* toolkit::windowOf(WPARAM handle) { return CWnd::FromHandle(reinterpret_cast<HWND>(handle)); }

CWnd::~CWnd()
{
    if (!m_hWnd)
        return;
    CWnd::DestroyWindow();
    if (m_hWnd)
        WindowMap::detach(*this);
}

BOOL CWnd::DestroyWindow() { return m_hWnd && ::DestroyWindow(m_hWnd); }

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

CWnd* CWnd::FromHandlePermanent(HWND window) { return WindowMap::find(window); }

CWnd* CWnd::FromHandle(HWND window)
{
    if (CWnd* const object = WindowMap::find(window))
        return object;
    static toolkit::ViewMap<HWND, WindowView, ::IsWindow> views;
    return window ? views.of(window) : nullptr;
}

BOOL CWnd::CreateEx(DWORD dwExStyle, const char* className, const char* windowName, DWORD dwStyle, const RECT& rect,
                    CWnd* pParentWnd, UINT nID, void* param)
{
    if (m_hWnd)
        return FALSE;
    WNDCLASSA description{};
    const bool own = ::GetClassInfoA(AfxGetInstanceHandle(), className, &description) &&
                     WindowMap::isOwnProcedure(description.lpfnWndProc);
    HWND window = nullptr;
    {
        std::optional<WindowMap::Creation> creation;
        if (own)
            creation.emplace(*this);
        window = ::CreateWindowExA(dwExStyle, className, windowName, dwStyle, rect.left, rect.top,
                                   rect.left == CW_USEDEFAULT ? CW_USEDEFAULT : rect.right - rect.left,
                                   rect.left == CW_USEDEFAULT ? CW_USEDEFAULT : rect.bottom - rect.top,
                                   pParentWnd ? pParentWnd->m_hWnd : nullptr,
                                   reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), AfxGetInstanceHandle(), param);
    }
    return window && (own || SubclassWindow(window));
}

BOOL CWnd::Create(const char* className, const char* windowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                  UINT nID, void* param)
{
    return CreateEx(0, className, windowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, param);
}

BOOL CWnd::SubclassWindow(HWND window)
{
    if (m_hWnd || !::IsWindow(window) || WindowMap::find(window))
        return FALSE;
    // Known before the procedure is ours: a message may come in between.
    const auto super = reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(window, GWLP_WNDPROC));
    if (!WindowMap::attach(*this, window, super))
        return FALSE;
    ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WindowMap::procedure));
    return TRUE;
}

HWND CWnd::UnsubclassWindow()
{
    const HWND window = m_hWnd;
    if (window)
        WindowMap::detach(*this);
    return window;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    LRESULT result = 0;
    switch (message) {
    case WM_COMMAND:
        if (OnCommand(wParam, lParam))
            return 0;
        break;
    case WM_NOTIFY:
        if (OnNotify(wParam, lParam, &result))
            return result;
        break;
    default:
        if (dispatchEntry(message, 0, wParam, lParam, 0, result))
            return result;
    }
    return DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    return m_super ? ::CallWindowProcA(m_super, m_hWnd, message, wParam, lParam)
                   : ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default()
{
    return m_current ? DefWindowProc(m_current->message, m_current->wParam, m_current->lParam) : 0;
}

BOOL CWnd::dispatchEntry(UINT message, int code, WPARAM wParam, LPARAM lParam, UINT id, LRESULT& result)
{
    const HWND window = m_hWnd;
    toolkit::Call call;
    call.message = message;
    call.wParam = wParam;
    call.lParam = lParam;
    call.id = id;
    if (!handle(code, id, call))
        return FALSE;
    result = call.result;
    if (call.failed && message == WM_PAINT)
        ::ValidateRect(window, nullptr);  // or it would come again for ever
    if (call.failed && message == WM_CREATE)
        result = -1;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    return OnCmdMsg(LOWORD(wParam), lParam ? HIWORD(wParam) : CN_COMMAND, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult)
{
    const NMHDR& header = *reinterpret_cast<NMHDR*>(lParam);
    const int code = static_cast<int>(header.code);
    const auto id = static_cast<UINT>(header.idFrom);
    CWnd* const sender = FromHandlePermanent(header.hwndFrom);
    return (sender && sender->dispatchEntry(WM_REFLECT_BASE + WM_NOTIFY, code, wParam, lParam, id, *pResult)) ||
           dispatchEntry(WM_NOTIFY, code, wParam, lParam, id, *pResult);
}

BOOL CWnd::changeStyle(int index, DWORD dwRemove, DWORD dwAdd, UINT nFlags)
{
    const auto before = static_cast<DWORD>(::GetWindowLongA(m_hWnd, index));
    const DWORD after = (before & ~dwRemove) | dwAdd;
    if (after == before)
        return FALSE;
    ::SetWindowLongA(m_hWnd, index, static_cast<LONG>(after));
    if (nFlags)
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | nFlags);
    return TRUE;
}

BOOL CWnd::SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags)
{
    return ::SetWindowPos(m_hWnd, pInsertAfter ? pInsertAfter->m_hWnd : nullptr, x, y, cx, cy, nFlags);
}

void CWnd::MoveWindow(const RECT& rect, BOOL bRepaint)
{
    ::MoveWindow(m_hWnd, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, bRepaint);
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate)
{
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void CWnd::UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler)
{
    for (HWND child = ::GetTopWindow(m_hWnd); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        const UINT id = LOWORD(::GetDlgCtrlID(child));
        if (id == 0 || id == 0xFFFF)
            continue;
        CCmdUI state;
        state.m_nID = id;
        state.m_pOther = FromHandle(child);
        state.DoUpdate(pTarget, bDisableIfNoHndler && isPushButton(child));
    }
}
