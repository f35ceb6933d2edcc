#include "library/diagnostics/ExceptionBase.h"

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
    if (const auto* pOwn = dynamic_cast<const CExceptionBase*>(pException)) {
        CString sText;
        return pOwn->getErrorText(sText) ? sText : CString();
    }
    char sText[1024 + 1] = "";
    return owner->GetErrorMessage(sText, sizeof sText) ? CString(sText) : CString();
}

}  // namespace Tesk
