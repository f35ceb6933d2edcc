#pragma once

// What is installed: product name and version, as a description says. Its lines are
// key=value, keys "ProductName" and "ProductVersion" in any letter case; other lines do
// not matter.

#include "mfc/afx.h"

#include <string_view>

namespace Tesk {

class CApplicationID {
public:
    // A line of the description.
    void addLine(std::string_view sLine);

    const CString& getName() const { return m_sProductName; }

    // "name version"; empty when one of them is not known.
    CString getLabel() const;

private:
    CString m_sProductName;
    CString m_sProductVersion;
};

}  // namespace Tesk
