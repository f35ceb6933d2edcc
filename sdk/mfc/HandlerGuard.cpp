// Part of every image that uses the toolkit: where its handlers' exceptions end.
#include "mfc/CException.h"
#include "mfc/MessageMap.h"

#include <exception>

namespace {

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
        exception.GetErrorMessage(text, sizeof text);
        report(text);
    } catch (...) {
        // A report that fails is lost; the exception is freed all the same.
    }
}

}  // namespace

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
