#pragma once

// Names longer than the "MaximumName" that the texts give when the strip is made are shown
// without their middle.

#include "mfc/afx.h"

class CLongNames {
public:
    CLongNames();

    // The name as its tab is to show it.
    CString shorten(const CString& sName) const;

private:
    int m_iMost;  // characters; 0: any number
};
