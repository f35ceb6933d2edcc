#pragma once

// Names longer than a drawing's "MaximumName" are shown without their middle.

#include "mfc/afx.h"

#include <map>

class AcApDocument;

class CLongNames {
public:
    // The name as its tab is to show it, and is known from now on.
    CString shorten(const AcApDocument* pDocument, const CString& sName);
    // A tab's text with the whole name.
    CString unshorten(const AcApDocument* pDocument, const CString& sTabText) const;
    void remove(const AcApDocument* pDocument) { m_mapShortened.erase(pDocument); }

private:
    struct Name {
        CString sWhole;
        int iShown;  // so many bytes of the tab's text stand for it
    };
    std::map<const AcApDocument*, Name> m_mapShortened;
};
