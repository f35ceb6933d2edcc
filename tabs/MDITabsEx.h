#pragma once

// The strip with one balloon tooltip for all tabs and the drawing icon.

#include "tabs/MDITabs.h"

#include <memory>

class CMDITabsEx : public CMDITabs {
public:
    CMDITabsEx() = default;
    ~CMDITabsEx() override;

    void Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle);

    // Also destroys the balloon.
    BOOL DestroyWindow() override;
    // Shows the message to the balloon.
    BOOL PreTranslateMessage(MSG* pMsg) override;

    // The shell's small icon for drawings becomes image 0, unless it is that already or
    // the user wants none.
    void addDrawingIcon();

protected:
    bool m_bToolTips = false;
    std::unique_ptr<CToolTipCtrl> m_pToolTip;

private:
    void createToolTip(CMDIFrameWnd* pMainFrame);

    DECLARE_MESSAGE_MAP()
};
