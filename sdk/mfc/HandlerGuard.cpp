// Part of every image that uses the toolkit: where its handlers' exceptions end.
#include "mfc/CException.h"
#include "mfc/CWnd.h"

#include <exception>

namespace {

AfxExceptionHook exceptionHook = nullptr;

void report(const char* what) noexcept
{
    ::OutputDebugStringA("Exception in a handler: ");
    ::OutputDebugStringA(what);
    ::OutputDebugStringA("\n");
}

void report(CException& exception) noexcept
{
    try {
        char text[512] = "";
        if (exceptionHook)
            return exceptionHook(exception);
        exception.GetErrorMessage(text, sizeof text);
        report(text);
    } catch (...) {
        // A report that fails is lost; the exception is freed all the same.
    }
}

}  // namespace

void AfxSetExceptionHook(AfxExceptionHook hook) { exceptionHook = hook; }

void toolkit::runHandler(Handler handler, CCmdTarget& target, Call& call) noexcept
{
    try {
        handler(target, call);
        return;
    } catch (CException* exception) {
        report(*exception);
        exception->Delete();
    } catch (const std::exception& exception) {
        report(exception.what());
    } catch (...) {
        report("unknown");
    }
    call.failed = true;
}
