#include "library/diagnostics/ExceptionText.h"

namespace Tesk {

CString takeExceptionText(CException* pException)
{
    char sText[1024 + 1] = "";
    const bool bText = pException->GetErrorMessage(sText, sizeof sText) != FALSE;
    pException->Delete();
    return bText ? CString(sText) : CString();
}

}
