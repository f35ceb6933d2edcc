#pragma once

// The logo at the strip's right end: a fixed width, the company's name in the
// colours of the system.

#include "mfc/afxwin.h"

class CAdvertisingControl : public CWnd {
public:
    // A hidden child of the parent, to be placed by whoever owns the strip. False
    // when there is no window.
    bool Create(CWnd* pParent, UINT nID);

    // In pixels.
    int getWidth() const { return 60; }

private:
    void OnPaint();

    DECLARE_MESSAGE_MAP()
};
