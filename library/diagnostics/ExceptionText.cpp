#include "library/diagnostics/ExceptionText.h"

#include <memory>

namespace Tesk {

CString takeExceptionText(CException* pException)
{
    const std::unique_ptr<CException, decltype([](CException* p) { p->Delete(); })> owner(pException);
    char sText[1024 + 1] = "";
    return pException->GetErrorMessage(sText, sizeof sText) ? CString(sText) : CString();
}

}  // namespace Tesk
