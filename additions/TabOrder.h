#pragma once

// The order into which somebody has brought the tabs. It outlives the strip, which a change
// of its style makes anew; as long as nobody has moved a tab nothing is kept.

#include "additions/StripView.h"

#include <vector>

class CTabOrder {
public:
    explicit CTabOrder(CARXMDITabs& tabs) : m_tabs(tabs) {}

    // Puts a tab into another's place.
    void move(int iFrom, int iTo);
    // The last tab is new: a file of before gets its place again, another stays the last.
    void place(const AcApDocument* pDocument);

private:
    void reinsert(int iFrom, int iTo);

    CARXMDITabs& m_tabs;
    // By the files' names: the address of a document that was closed may be another's by now.
    static std::vector<CString> s_vecOrder;
};
