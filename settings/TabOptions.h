#pragma once

// The user's six options and, here alone, their defaults.

#include "mfc/afx.h"

#include <windows.h>

struct CTabOptions {
    DWORD dwLocation = 1;  // 1 below the drawings, any other above
    bool bDiscreet = false;
    bool bToolTips = true;
    bool bExtensions = false;
    bool bIcons = true;
    bool bUse = true;

    // As the registry has them now; what cannot be read has its default.
    static CTabOptions read();
    // One of them, without the others' cost.
    static bool readExtensions();
    static bool readIcons();
    static bool readUse();
    // Where they are kept, of the current user.
    static CString getKey();
};
