#pragma once

// A link in a dialog: a static text, underlined, that opens a web or a mail address by
// the shell when it is clicked, or with the space bar or Enter while it has the focus.

#include "library/system/Handles.h"
#include "mfc/afxwin.h"

class CHyperLink : public CWnd {
public:
    // What the shell is to open for a text that a person wrote: web addresses ("http://",
    // "https://", "www.") and one mail address ("mailto:", "name@place") without fields. Empty
    // for anything else and beyond 255 characters: a link starts no program and opens no file.
    static CString getTarget(const CString& sAddress);

    // Takes the dialog's static control over, which shows the address from now on and is
    // cut to its width. False when there is no such control. An address that cannot be
    // opened is plain text that the focus passes over.
    bool Attach(CWnd* pDialog, int nID, const CString& sAddress);

    // Has the shell open the target; false when it has nothing to open it with.
    bool open() const;

private:
    void fitToText();
    void drawText(HDC hdc, RECT rect) const;

    void OnPaint();
    LRESULT OnHitTest(WPARAM wParam, LPARAM lParam);
    LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnButtonDown(WPARAM wParam, LPARAM lParam);
    LRESULT OnButtonUp(WPARAM wParam, LPARAM lParam);
    LRESULT OnFocusChanged(WPARAM wParam, LPARAM lParam);

    CString m_sTarget;
    UniqueFont m_font;  // the dialog's, underlined

    DECLARE_MESSAGE_MAP()
};
