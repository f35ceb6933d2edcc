#pragma once

// The dialog of the strip's options. It carries values alone: whoever shows it fills
// the members before, and stores them after OK.

#include "mfc/afxwin.h"

class COptionsDialog : public CDialog {
public:
    explicit COptionsDialog(CWnd* pParent = nullptr);

    // With the template of the module.
    INT_PTR DoModal() override;
    // Updates the controls' state before each message.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    BOOL m_bDiscreet = TRUE;
    BOOL m_bDebug = FALSE;
    BOOL m_bShowToolTips = FALSE;
    BOOL m_bShowExtensions = FALSE;
    BOOL m_bShowIcons = FALSE;
    BOOL m_bUseTabs = TRUE;
    int m_iTabPosition = -1;  // 0 top, 1 bottom

protected:
    void DoDataExchange(CDataExchange* pDX) override;

private:
    // Enabled exactly while the tabs are used.
    void OnUpdateOption(CCmdUI* pCmdUI);

    DECLARE_MESSAGE_MAP()
};
