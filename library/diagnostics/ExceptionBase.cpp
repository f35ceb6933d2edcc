#include "library/diagnostics/ExceptionBase.h"

#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <algorithm>

namespace Tesk {

BOOL CExceptionBase::GetErrorMessage(char* sBuffer, UINT uCapacity) const
{
    CString sText;
    if (!sBuffer || uCapacity == 0 || !getErrorText(sText))
        return FALSE;
    std::string_view sPart = viewOf(sText).substr(0, uCapacity - 1);
    if (sPart.size() < viewOf(sText).size() && MultiByte::CLeadBytes().isOpen(sPart))
        sPart.remove_suffix(1);
    *std::copy(sPart.begin(), sPart.end(), sBuffer) = '\0';
    return TRUE;
}

}  // namespace Tesk
