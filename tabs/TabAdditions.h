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

    // What a tab shows for the document's name, before the marker.
    virtual CString getText(AcApDocument* pDocument, const CString& sName) = 0;
    // The document's tab has come, as the last one.
    virtual void tabAdded(AcApDocument* pDocument) = 0;
    // A tab has come, or has another text.
    virtual void tabChanged() = 0;
    // The document's tab has gone.
    virtual void tabRemoved(AcApDocument* pDocument) = 0;
    // The document is the active one from now on.
    virtual void tabActivated(AcApDocument* pDocument) = 0;
    // The strip has another size.
    virtual void stripSized() = 0;

    virtual void appendItems(AcApDocument* pDocument, CMenu& menu, Place place) = 0;
    // A menu of the strip is about to show; it may be one that is filled only now.
    virtual void openMenu(CMenu& menu) = 0;
    // False when the item is none of these, or not switched on.
    virtual bool processItem(AcApDocument* pDocument, UINT iItem) = 0;
    // A message of the mouse, its capture or a timer, or WM_APP, which is for the additions to
    // post. True when the strip is not to handle it.
    virtual bool handleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
};
