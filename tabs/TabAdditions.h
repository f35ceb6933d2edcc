#pragma once

// What stands beside the strip: the strip asks it, where it is there, and knows nothing
// else of it. What it raises ends at the call.

#include "mfc/afx.h"

#include <windows.h>

class AcApDocument;
class CMenu;

class CTabAdditions {
public:
    // In a tab's menu.
    enum class Place { BehindClose, BeforeOptions, BehindOptions };

    virtual ~CTabAdditions() = default;

    // What goes behind the tab's name, before the marker.
    virtual CString getSuffix(AcApDocument* pDocument, const CString& sName) = 0;
    // A tab has come, or has another text.
    virtual void tabChanged() = 0;
    // The document's tab has gone.
    virtual void tabRemoved(AcApDocument* pDocument) = 0;

    virtual void appendItems(AcApDocument* pDocument, CMenu& menu, Place place) = 0;
    // A menu of the strip is about to show; it may be one that is filled only now.
    virtual void openMenu(CMenu& menu) = 0;
    // False when the item is none of these, or not switched on.
    virtual bool processItem(AcApDocument* pDocument, UINT iItem) = 0;
    // A message of the mouse or its capture, at a client point. True when the strip is not
    // to handle it.
    virtual bool handleMouse(UINT message, CPoint point) = 0;
};
