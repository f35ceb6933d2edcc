#pragma once

// The order of what is kept a file name: multibyte text, case counting.

#include "mfc/afx.h"

#include <mbstring.h>

struct FileNameLess {
    bool operator()(const CString& sOne, const CString& sOther) const
    {
        return ::_mbscmp(reinterpret_cast<const unsigned char*>(sOne.GetString()),
                         reinterpret_cast<const unsigned char*>(sOther.GetString())) < 0;
    }
};
