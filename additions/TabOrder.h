#pragma once

// The order into which somebody has brought the tabs. It outlives the strip, which a change
// of its style makes anew; as long as nobody has moved a tab nothing is kept.

#include "additions/StripView.h"

#include <map>
#include <vector>

class CTabOrder {
public:
    explicit CTabOrder(CARXMDITabs& tabs) : m_tabs(tabs) {}

    // Puts a tab into another's place.
    void move(int iFrom, int iTo);
    // The last tab is new: one of before gets its place again.
    void place(AcApDocument* pDocument);

private:
    void reinsert(int iFrom, int iTo);
    static void append(AcApDocument* pDocument);

    CARXMDITabs& m_tabs;
    static std::vector<AcApDocument*> s_vecOrder;
    static std::vector<AcApDocument*> s_vecDue;  // of these the tabs are still to come again
    // Of those in order: the address of one that was closed may be another's by now.
    static std::map<const AcApDocument*, CString> s_mapNames;
};
