#pragma once

// A modal dialog from a template. It runs in a message loop of the toolkit, so
// that PreTranslateMessage and WM_KICKIDLE work as for any other window.
#include "mfc/CDataExchange.h"
#include "mfc/CWnd.h"

class CADMFC_API CDialog : public CWnd {
public:
    // Template nIDTemplate of AfxGetResourceHandle().
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr) : m_templateId(nIDTemplate), m_parent(pParentWnd) {}

    // Shows the dialog over its parent (by default the thread's active window),
    // which is disabled meanwhile; centred there when the template is at 0, 0.
    // The value given to EndDialog, or -1 when the template is missing or the
    // window could not be made.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    // TRUE lets the system set the focus. Shows the data.
    virtual BOOL OnInitDialog();
    virtual void OnOK();      // saves the data and ends with IDOK
    virtual void OnCancel();  // ends with IDCANCEL

    DECLARE_MESSAGE_MAP()

private:
    static INT_PTR CALLBACK dialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR runModalLoop(HWND owner);

    UINT m_templateId;
    CWnd* m_parent;
    INT_PTR m_result = -1;
    bool m_running = false;
};
