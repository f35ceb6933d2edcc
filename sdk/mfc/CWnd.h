#pragma once

// A window and its message map. What a frame, a parent or the message pump does
// for a window (layout, reflection, PreTranslateMessage) it does for those that
// have an object, and for no others. An override ends its own exceptions.
#include "mfc/CCmdTarget.h"
#include "mfc/CString.h"

class CDataExchange;

constexpr UINT WM_SIZEPARENT = 0x0361;  // lParam: AFX_SIZEPARENTPARAMS*
constexpr UINT WM_KICKIDLE = 0x036A;
constexpr UINT AFX_IDW_PANE_FIRST = 0xE900;  // the window that gets what the bars leave

// The record of a layout pass: a child takes its band away from rect and
// places its windows through hDWP; without hDWP the pass only measures.
struct AFX_SIZEPARENTPARAMS {
    HDWP hDWP;
    RECT rect;
    SIZE sizeTotal;
    BOOL bStretch;
};
using LPAFX_SIZEPARENTPARAMS = AFX_SIZEPARENTPARAMS*;

// Defers a move to `rect` (parent's client coordinates); nothing when the
// window is there already or the pass only measures.
CADMFC_API void AfxRepositionWindow(AFX_SIZEPARENTPARAMS* layout, HWND window, const RECT* rect);

class CADMFC_API CWnd : public CCmdTarget {
public:
    enum { reposDefault = 0, reposQuery = 1 };

    CWnd() = default;
    ~CWnd() override;  // destroys a window that still lives

    HWND m_hWnd = nullptr;

    virtual BOOL DestroyWindow();
    // TRUE when the message is dealt with and must not be dispatched.
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    static CWnd* FromHandlePermanent(HWND window);  // its object, or null
    // Its object, or a view that carries the handle and lives as long as the window. Null for null.
    static CWnd* FromHandle(HWND window);

    BOOL CreateEx(DWORD dwExStyle, const char* className, const char* windowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, void* param = nullptr);
    BOOL Create(const char* className, const char* windowName, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd,
                UINT nID, void* param = nullptr);
    BOOL SubclassWindow(HWND window);  // FALSE when it has an object here already
    HWND UnsubclassWindow();           // the window goes on without us

    // The plain Win32 calls on m_hWnd.
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::SendMessageA(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const
    {
        return ::PostMessageA(m_hWnd, message, wParam, lParam);
    }
    DWORD GetStyle() const { return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_STYLE)); }
    DWORD GetExStyle() const { return static_cast<DWORD>(::GetWindowLongA(m_hWnd, GWL_EXSTYLE)); }
    // FALSE when nothing changed. Non-zero flags are handed to SetWindowPos so that the frame is redrawn.
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0)
    {
        return changeStyle(GWL_EXSTYLE, dwRemove, dwAdd, nFlags);
    }
    BOOL SetWindowPos(const CWnd* pInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void MoveWindow(const RECT& rect, BOOL bRepaint = TRUE);
    BOOL ShowWindow(int nCmdShow) { return ::ShowWindow(m_hWnd, nCmdShow); }
    BOOL EnableWindow(BOOL bEnable = TRUE) { return ::EnableWindow(m_hWnd, bEnable); }
    BOOL IsWindowVisible() const { return ::IsWindowVisible(m_hWnd); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    void Invalidate(BOOL bErase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, bErase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    void GetClientRect(RECT* rect) const { ::GetClientRect(m_hWnd, rect); }
    void GetWindowRect(RECT* rect) const { ::GetWindowRect(m_hWnd, rect); }
    void ScreenToClient(POINT* point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(RECT* rect) const { ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2); }
    void ClientToScreen(POINT* point) const { ::ClientToScreen(m_hWnd, point); }
    void ClientToScreen(RECT* rect) const { ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(rect), 2); }
    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetDlgItem(int nID) const { return FromHandle(::GetDlgItem(m_hWnd, nID)); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    void SetWindowText(const char* text) { ::SetWindowTextA(m_hWnd, text); }
    void GetWindowText(CString& text) const
    {
        const int length = ::GetWindowTextLengthA(m_hWnd);
        text.ReleaseBuffer(::GetWindowTextA(m_hWnd, text.GetBuffer(length + 1), length + 1));
    }
    int MessageBox(const char* text, const char* caption = nullptr, UINT nType = MB_OK)
    {
        return ::MessageBoxA(m_hWnd, text, caption, nType);
    }

    // Runs the update handlers of `target` for every child with an identifier.
    // With bDisableIfNoHndler, push buttons without a command handler are disabled.
    void UpdateDialogControls(CCmdTarget* pTarget, BOOL bDisableIfNoHndler);

    // A layout pass over the children whose identifier lies in the range; the
    // window nIDLeftOver gets what they leave. reposQuery only measures into pRectParam.
    void RepositionBars(UINT nIDFirst, UINT nIDLast, UINT nIDLeftOver, UINT nFlag = reposDefault,
                        RECT* pRectParam = nullptr, const RECT* pRectClient = nullptr);

    // Moves data between members and controls: TRUE saves, FALSE shows.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);

    // Default handling of what the message maps can name: the message goes on unchanged.
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    void OnSize(UINT, int, int) { Default(); }
    void OnClose() { Default(); }
    void OnPaint() { Default(); }

protected:
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // Commands of menus, accelerators and controls: TRUE when handled.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual void PostNcDestroy() {}  // the last call: the place for `delete this`
    virtual void DoDataExchange(CDataExchange*) {}

    // Hands the message being handled to DefWindowProc with its original parameters.
    LRESULT Default();

private:
    friend struct WindowMap;
    friend class CDialog;

    BOOL changeStyle(int index, DWORD dwRemove, DWORD dwAdd, UINT nFlags);
    BOOL dispatchEntry(UINT message, int code, WPARAM wParam, LPARAM lParam, UINT id, LRESULT& result);

    WNDPROC m_super = nullptr;
    const MSG* m_current = nullptr;
};

// Registers (once) a window class whose windows CreateEx can create and attach
// from their first message on.
CADMFC_API const char* AfxRegisterWndClass(UINT classStyle, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                                           HICON icon = nullptr);

// The program, never a module of it; resources come from there unless told otherwise.
CADMFC_API HINSTANCE AfxGetInstanceHandle();
CADMFC_API HINSTANCE AfxGetResourceHandle();
CADMFC_API void AfxSetResourceHandle(HINSTANCE instance);
