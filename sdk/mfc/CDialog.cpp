#include "mfc/CDialog.h"

#include "mfc/MessagePump.h"
#include "mfc/WindowMap.h"

#include <utility>

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

CDialog* pendingDialog = nullptr;  // waits for its window's first message

const DLGTEMPLATE* findTemplate(UINT id)
{
    const HINSTANCE instance = AfxGetResourceHandle();
    const HRSRC resource = ::FindResourceA(instance, MAKEINTRESOURCEA(id), reinterpret_cast<const char*>(RT_DIALOG));
    return resource ? static_cast<const DLGTEMPLATE*>(::LockResource(::LoadResource(instance, resource))) : nullptr;
}

BOOL CALLBACK takeMainWindow(HWND window, LPARAM found)
{
    if (!::IsWindowVisible(window) || ::GetWindow(window, GW_OWNER))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

// The window that a dialog without a parent belongs to: what the user works
// with, or, while the program is in the background, its main window.
HWND defaultOwner()
{
    HWND window = ::GetActiveWindow();
    if (!window)
        ::EnumThreadWindows(::GetCurrentThreadId(), &takeMainWindow, reinterpret_cast<LPARAM>(&window));
    return window ? ::GetLastActivePopup(::GetAncestor(window, GA_ROOTOWNER)) : nullptr;
}

// A template at the origin leaves the place to us.
bool leavesPlace(const DLGTEMPLATE* dialogTemplate)
{
    const bool extended = HIWORD(dialogTemplate->style) == 0xFFFF;
    const auto* const words = reinterpret_cast<const short*>(dialogTemplate);
    return extended ? words[9] == 0 && words[10] == 0 : dialogTemplate->x == 0 && dialogTemplate->y == 0;
}

void centerOver(HWND owner, HWND window)
{
    RECT place, own;
    ::GetWindowRect(window, &own);
    if (!owner || ::IsIconic(owner) || !::GetWindowRect(owner, &place))
        ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &place, 0);
    ::SetWindowPos(window, nullptr, place.left + ((place.right - place.left) - (own.right - own.left)) / 2,
                   place.top + ((place.bottom - place.top) - (own.bottom - own.top)) / 2, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool isInput(UINT message)
{
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

}  // namespace

INT_PTR CDialog::DoModal()
{
    const DLGTEMPLATE* const dialogTemplate = findTemplate(m_templateId);
    if (m_hWnd || !dialogTemplate)
        return -1;
    const HWND owner = m_parent ? ::GetAncestor(m_parent->m_hWnd, GA_ROOT) : defaultOwner();
    const bool disabled = owner && ::IsWindowEnabled(owner);
    if (disabled)
        ::EnableWindow(owner, FALSE);
    m_result = -1;
    m_running = true;
    pendingDialog = this;
    ::CreateDialogIndirectParamA(AfxGetResourceHandle(), dialogTemplate, owner, &CDialog::dialogProc, 0);
    pendingDialog = nullptr;
    if (m_hWnd) {
        if (leavesPlace(dialogTemplate))
            centerOver(owner, m_hWnd);
        runModalLoop(owner);
    }

    // The owner is enabled first: else the system would activate another program's window.
    if (disabled)
        ::EnableWindow(owner, TRUE);
    if (m_hWnd && ::GetActiveWindow() == m_hWnd)
        ::SetActiveWindow(owner);
    DestroyWindow();
    return m_result;
}

INT_PTR CDialog::runModalLoop(HWND owner)
{
    if (m_running) {
        ShowWindow(SW_SHOWNORMAL);
        UpdateWindow();
    }
    long idleCount = 0;
    bool idle = true;
    while (m_running && m_hWnd) {
        MSG message{};
        while (idle && !::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            if (idleCount == 0 && owner)
                ::SendMessageA(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            idle = SendMessage(WM_KICKIDLE, MSGF_DIALOGBOX, idleCount++) != 0;
            if (!m_running || !m_hWnd)
                return m_result;
        }
        if (::GetMessageA(&message, nullptr, 0, 0) <= 0) {
            ::PostQuitMessage(static_cast<int>(message.wParam));  // for the loop outside
            return m_result;
        }
        if (!toolkit::preTranslate(message, m_hWnd)) {
            ::TranslateMessage(&message);
            ::DispatchMessageA(&message);
        }
        idle = true;
        idleCount = 0;
    }
    return m_result;
}

void CDialog::EndDialog(int nResult)
{
    m_result = nResult;
    m_running = false;
    PostMessage(WM_NULL);  // wakes the loop
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg)
{
    return CWnd::PreTranslateMessage(pMsg) || (isInput(pMsg->message) && ::IsDialogMessageA(m_hWnd, pMsg));
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

INT_PTR CALLBACK CDialog::dialogProc(HWND window, UINT message, WPARAM, LPARAM)
{
    if (CDialog* const dialog = std::exchange(pendingDialog, nullptr))
        dialog->SubclassWindow(window);
    if (message != WM_INITDIALOG)
        return FALSE;
    auto* const dialog = dynamic_cast<CDialog*>(FromHandlePermanent(window));
    return dialog ? dialog->OnInitDialog() : TRUE;
}
