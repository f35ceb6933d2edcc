#include "mfc/CToolTipCtrl.h"

#include <cstddef>

namespace {

// The whole window as one tool; the older size is what every version of the control accepts.
TOOLINFOA toolOf(CWnd* window)
{
    TOOLINFOA tool{};
    tool.cbSize = offsetof(TOOLINFOA, lParam);
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = ::GetParent(window->m_hWnd);
    tool.uId = reinterpret_cast<UINT_PTR>(window->m_hWnd);
    return tool;
}

}  // namespace

BOOL CToolTipCtrl::Create(CWnd* pParentWnd, DWORD dwStyle)
{
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
    ::InitCommonControlsEx(&controls);
    const RECT unset = {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};
    return CreateEx(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP | dwStyle, unset, pParentWnd, 0);
}

BOOL CToolTipCtrl::AddTool(CWnd* pWnd, const char* text)
{
    TOOLINFOA tool = toolOf(pWnd);
    tool.lpszText = const_cast<char*>(text);
    return static_cast<BOOL>(SendMessage(TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool)));
}

void CToolTipCtrl::UpdateTipText(const char* text, CWnd* pWnd, UINT)
{
    TOOLINFOA tool = toolOf(pWnd);
    tool.lpszText = const_cast<char*>(text);
    SendMessage(TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
}
