#include "library/maintenance/ApplicationID.h"

#include "library/files/PathParts.h"
#include "library/files/TextFileContents.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <string_view>

namespace Tesk {

CApplicationID::CApplicationID(const char* sModuleFile)
{
    try {
        readDescription(CPathParts(sModuleFile).withExtension(".avf").c_str());
    } catch (CException* pException) {
        pException->Delete();
    }
}

void CApplicationID::readDescription(const char* sFileName)
{
    CTextFileContents contents(sFileName, true);
    std::string_view sLine;
    while (contents.nextConverted(sLine)) {
        const std::size_t equals = sLine.find('=');
        if (equals == sLine.npos)
            continue;
        const std::string_view sKey = MultiByte::trim(sLine.substr(0, equals));
        const CString sValue = toCString(MultiByte::trim(sLine.substr(equals + 1)));
        if (MultiByte::equalNoCase(sKey, "ProductName"))
            m_sProductName = sValue;
        else if (MultiByte::equalNoCase(sKey, "ProductVersion"))
            m_sProductVersion = sValue;
    }
}

CString CApplicationID::getLabel() const
{
    return m_sProductName.IsEmpty() || m_sProductVersion.IsEmpty() ? "" : m_sProductName + " " + m_sProductVersion;
}

}  // namespace Tesk
