#include "library/diagnostics/ApplicationID.h"

#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

namespace Tesk {

void CApplicationID::addLine(std::string_view sLine)
{
    const std::size_t equals = sLine.find('=');
    if (equals == sLine.npos)
        return;
    const std::string_view sKey = MultiByte::trim(sLine.substr(0, equals));
    const CString sValue = toCString(MultiByte::trim(sLine.substr(equals + 1)));
    if (MultiByte::equalNoCase(sKey, "ProductName"))
        m_sProductName = sValue;
    else if (MultiByte::equalNoCase(sKey, "ProductVersion"))
        m_sProductVersion = sValue;
}

CString CApplicationID::getLabel() const
{
    return m_sProductName.IsEmpty() || m_sProductVersion.IsEmpty() ? "" : m_sProductName + " " + m_sProductVersion;
}

}  // namespace Tesk
