#pragma once

// Tabs moved with the left mouse button, where the registry asks for it.

#include "additions/MessageFilter.h"
#include "additions/TabOrder.h"

class CDragTabs {
public:
    explicit CDragTabs(CARXMDITabs& tabs) : m_tabs(tabs) {}
    ~CDragTabs() { end(); }

    // True for what the strip is not to handle.
    bool handle(UINT message, WPARAM wParam, CPoint point);
    // Escape ends it, and does nothing else.
    bool filterMessage(const MSG& message);
    void forget(const AcApDocument* pDocument);

private:
    void press(CPoint point);
    void move(CPoint point);
    void drop(CPoint point);
    void end();
    void setScrolling(int iDirection);
    int targetAt(CPoint point) const;

    CARXMDITabs& m_tabs;
    CStripView m_view{m_tabs};
    AcApDocument* m_pPressed = nullptr;  // on whose tab
    CPoint m_pressed;
    bool m_bDragging = false;
    int m_iScrolling = 0;  // to the left -1, to the right 1
    CMessageFilter<CDragTabs> m_filter{*this};
};
