#pragma once

// The generic strip: a tab control that takes a band of an MDI frame's client area
// above or below the drawings, and hides itself below a number of tabs.

#include "library/controls/AdvertisingControl.h"
#include "mfc/afxcmn.h"
#include "mfc/afxwin.h"

// The style word given to Create.
constexpr DWORD MDITABS_TOP = 1;       // above the MDI client, else below
constexpr DWORD MDITABS_IMAGES = 2;    // tabs carry icons
constexpr DWORD MDITABS_DISCREET = 4;  // shown from two tabs on, else from one
constexpr DWORD MDITABS_TOOLTIPS = 8;  // one balloon for the strip (CMDITabsEx)

class CMDITabs : public CTabCtrl {
public:
    CMDITabs() = default;
    ~CMDITabs() override;

    // Creates the control and the logo as children of the frame. They are placed
    // and shown by the frame's next layout pass.
    void Create(CMDIFrameWnd* pMainFrame, DWORD dwStyle);

    // Also frees the image list.
    BOOL DestroyWindow() override;

protected:
    CImageList m_images;
    int m_iMinViews = 1;
    bool m_bImages = false;
    bool m_bTop = false;
    CAdvertisingControl m_wndLogo;

private:
    // The frame's layout pass: takes the band and places both windows in it.
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    void createImages();

    DECLARE_MESSAGE_MAP()
};
