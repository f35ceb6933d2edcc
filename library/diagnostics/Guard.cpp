#include "library/diagnostics/Guard.h"

#include "library/diagnostics/ExceptionBase.h"
#include "library/diagnostics/Prerelease.h"

#include <exception>

namespace Tesk {

void Detail::endException(const char* sCall) noexcept
{
    try {
        throw;
    } catch (CException* pException) {
        // A trace that is off evaluates nothing, and the exception has to go in any case.
        const CString sText = takeExceptionText(pException);
        TESK_TRACE("%s ended by an exception: %s\n", sCall, sText.GetString());
    } catch (const std::exception& exception) {
        TESK_TRACE("%s ended by an exception: %s\n", sCall, exception.what());
    } catch (...) {
        TESK_TRACE("%s ended by an unknown exception\n", sCall);
    }
}

void Detail::dropException() noexcept
{
    try {
        throw;
    } catch (CException* pException) {
        pException->Delete();
    } catch (...) {
    }
}

}  // namespace Tesk
