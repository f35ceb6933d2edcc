#include "library/diagnostics/ApplicationID.h"

#include "library/files/PathParts.h"
#include "library/files/TextFileContents.h"

#include <string>

namespace Tesk {

CApplicationID::CApplicationID(HINSTANCE hModule)
{
    char sModule[MAX_PATH] = "";
    const DWORD dwLength = ::GetModuleFileNameA(hModule, sModule, MAX_PATH);
    if (dwLength != 0 && dwLength < MAX_PATH)
        readBeside(sModule);
}

CApplicationID::CApplicationID(const char* sModuleFile) { readBeside(sModuleFile); }

void CApplicationID::readBeside(const char* sModuleFile)
{
    try {
        readDescription(PathParts(sModuleFile).withExtension(".avf").c_str());
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
        CString sKey{std::string(sLine.substr(0, equals))};
        CString sValue{std::string(sLine.substr(equals + 1))};
        sKey.Trim();
        if (sKey.CompareNoCase("ProductName") == 0)
            m_sProductName = sValue.Trim();
        else if (sKey.CompareNoCase("ProductVersion") == 0)
            m_sProductVersion = sValue.Trim();
    }
}

bool CApplicationID::isValid() const { return !m_sProductName.IsEmpty() && !m_sProductVersion.IsEmpty(); }

CString CApplicationID::getLabel() const { return m_sProductName + " " + m_sProductVersion; }

}  // namespace Tesk
