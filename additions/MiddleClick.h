#pragma once

// A tab's drawing closed by the middle mouse button, where the registry asks for it.

#include "tabs/ARXMDITabs.h"

class CMiddleClick {
public:
    explicit CMiddleClick(CARXMDITabs& tabs) : m_tabs(tabs) {}

    // Pressed and released on one tab, it closes that tab's drawing.
    void handle(UINT message, CPoint point);
    void forget(const AcApDocument* pDocument);

private:
    CARXMDITabs& m_tabs;
    AcApDocument* m_pPressed = nullptr;  // on whose tab
};
