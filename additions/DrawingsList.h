#pragma once

// The submenu of all open drawings, to switch by.

#include "tabs/ARXMDITabs.h"

#include <vector>

class CDrawingsList {
public:
    // The last used come first where the texts say so when the strip is made.
    explicit CDrawingsList(CARXMDITabs& tabs);

    // Where the document's texts ask for it, and the host allows to switch. True when it was
    // appended; it is filled when it opens.
    bool append(const AcApDocument* pDocument, CMenu& menu);
    void fill(CMenu& menu);
    // False when the item is none of its.
    bool activate(UINT iItem);
    // The document is the active one from now on.
    void use(AcApDocument* pDocument);

private:
    // By last use, the active one last, where that is asked for. Else a list that is longer than
    // the screen begins shortly before the active one, and goes on with the first behind the last.
    void sort();

    CARXMDITabs& m_tabs;
    bool m_bRecent;
    HMENU m_hMenu = nullptr;
    std::vector<AcApDocument*> m_vecDrawings;  // in it; one may have gone since
    // By last use, the active one last. It outlives the strip; only who has a tab counts.
    static std::vector<const AcApDocument*> s_vecUsed;
};
