#include "library/diagnostics/ExceptionText.h"

#include <memory>

namespace Tesk {

namespace {

struct CDelete {
    void operator()(CException* pException) const { pException->Delete(); }
};

}  // namespace

CString takeExceptionText(CException* pException)
{
    const std::unique_ptr<CException, CDelete> owner(pException);
    char sText[1024 + 1] = "";
    return pException->GetErrorMessage(sText, sizeof sText) ? CString(sText) : CString();
}

}  // namespace Tesk
