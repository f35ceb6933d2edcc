#pragma once

// The documents of the tabs that are open, in the tabs' order.

#include "reactors/OpenDocuments.h"
#include "tabs/ARXMDITabs.h"

#include <vector>

inline std::vector<AcApDocument*> openTabs(CARXMDITabs& tabs)
{
    std::vector<AcApDocument*> vecDocuments;
    const int iCount = tabs.GetItemCount();
    for (int iItem = 0; iItem < iCount; ++iItem)
        if (AcApDocument* pDocument = tabs.getDocument(iItem); isOpen(pDocument))
            vecDocuments.push_back(pDocument);
    return vecDocuments;
}
