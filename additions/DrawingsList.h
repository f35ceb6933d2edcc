#pragma once

// The submenu of all open drawings, to switch by.

#include "additions/LongNames.h"
#include "tabs/ARXMDITabs.h"

#include <vector>

class CDrawingsList {
public:
    CDrawingsList(CARXMDITabs& tabs, const CLongNames& longNames) : m_tabs(tabs), m_longNames(longNames) {}

    // Where the document's texts ask for it, and the host allows to switch. True when it was
    // appended; it is filled when it opens.
    bool append(const AcApDocument* pDocument, CMenu& menu);
    void fill(CMenu& menu);
    // False when the item is none of its.
    bool activate(UINT iItem);
    // The document is the active one from now on.
    static void use(AcApDocument* pDocument);

private:
    std::vector<int> order() const;

    CARXMDITabs& m_tabs;
    const CLongNames& m_longNames;
    HMENU m_hMenu = nullptr;
    bool m_bRecent = false;                    // the last used first
    std::vector<AcApDocument*> m_vecDrawings;  // in it; one may have gone since
    // By last use, the active one last. It outlives the strip; only who has a tab counts.
    static std::vector<const AcApDocument*> s_vecUsed;
};
