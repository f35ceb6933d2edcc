#pragma once

// What is installed: product name and version, read from the description file
// (".avf") beside the module and of the module's name. Lines are key=value,
// keys "ProductName" and "ProductVersion" in any letter case; other lines do
// not matter. A missing or unreadable file is no error: nothing is valid then.

#include "mfc/afx.h"

namespace Tesk {

class CApplicationID {
public:
    // Of a module's file, which need not exist itself.
    explicit CApplicationID(const char* sModuleFile);

    const CString& getName() const { return m_sProductName; }

    // "name version"; empty when one of them is not known.
    CString getLabel() const;

private:
    void readDescription(const char* sFileName);

    CString m_sProductName;
    CString m_sProductVersion;
};

}  // namespace Tesk
