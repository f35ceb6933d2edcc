#pragma once

// Which of the strip's tabs show. What is done here changes the view alone: no drawing is
// activated, and none selected.

#include "tabs/ARXMDITabs.h"

class CStripView {
public:
    explicit CStripView(CARXMDITabs& tabs) : m_tabs(tabs) {}

    // The first tab that shows; their number when all are scrolled out.
    int first() const;
    // Where the tabs end on the right, in client coordinates: at the arrows, if there are any.
    int rightEnd() const;
    // By so many tabs, backwards when negative, at most until the last one shows.
    void scroll(int iTabs) const;
    void show(int iItem) const;
    // Scrolls back while that puts no tab out of view: a tab that has gone and a wider strip
    // leave room.
    void useRoom() const;

private:
    CRect placeOf(int iItem) const;
    bool isScrolledOut(int iItem) const;
    bool lastShows() const { return placeOf(m_tabs.GetItemCount() - 1).right <= rightEnd(); }
    void scrollTo(int iFirst) const;

    CARXMDITabs& m_tabs;
};
