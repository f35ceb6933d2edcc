#include "library/files/DefaultSettingsException.h"

#include <iterator>

namespace Tesk {

bool CDefaultSettingsException::getErrorText(CString& sText) const
{
    static const char* const kMessages[] = {
        "Error opening file", "Error writing file",   "Tokenising error", "Invalid section",
        "Invalid key",        "Remove is disallowed", "Unknown error",
    };
    if (m_sFileName.IsEmpty())
        sText = "Error : ";
    else if (m_uLine == kNoLine)
        sText.Format("Error (<<%s>>) : ", m_sFileName.GetString());
    else
        sText.Format("Error (<<%s>> @ line %d) : ", m_sFileName.GetString(), static_cast<int>(m_uLine));
    if (m_uCode >= std::size(kMessages))
        return false;
    sText += kMessages[m_uCode];
    if (getExtraText().IsEmpty())
        sText += ".";
    else
        sText += " (" + getExtraText() + ").";
    return true;
}

}  // namespace Tesk
