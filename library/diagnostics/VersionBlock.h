#pragma once

// The texts and flags of the module's own version resource.

#include "mfc/afx.h"

namespace Tesk {

class CVersionBlock {
public:
    // Reads the resource of getCurrentModule(); false when there is none or it
    // is damaged, and everything is empty then.
    static bool initialise();
    static void terminate();

    static const CString& getCompanyName();
    static const CString& getProductName();
    static const CString& getInternalName();
    static const CString& getFileVersion();

    // The fixed flags, where the flags mask lets them count, say pre-release.
    static bool isPrerelease();
};

}  // namespace Tesk
