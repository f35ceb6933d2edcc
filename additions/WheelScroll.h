#pragma once

// The mouse's wheel over the strip scrolls it, where the registry asks for it when the
// strip is made.

#include "additions/MessageFilter.h"
#include "additions/StripView.h"

class CWheelScroll {
public:
    explicit CWheelScroll(CARXMDITabs& tabs);

    bool filterMessage(const MSG& message);

private:
    CARXMDITabs& m_tabs;
    CStripView m_view{m_tabs};
    int m_iDelta = 0;  // turned, but less than a notch yet
    CMessageFilter<CWheelScroll> m_filter{*this};
};
