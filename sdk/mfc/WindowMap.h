#pragma once

// This image's windows: which object stands for which HWND, the one window
// procedure they share, and the guard that keeps exceptions inside it.
#include "mfc/CWnd.h"

struct WindowMap {
    // The object of a window, or null.
    static CWnd* find(HWND window);
    static void attach(CWnd& object, HWND window, WNDPROC super);
    // Forgets the window and gives it its procedure back where we are still the outermost.
    static void detach(CWnd& object);
    static bool isOwnProcedure(WNDPROC procedure) { return procedure == &WindowMap::procedure; }

    // While one lives, the first message of a window yet unknown, of a class
    // from AfxRegisterWndClass, ties that window to the object.
    class Creation {
    public:
        explicit Creation(CWnd& object) { creating = &object; }
        ~Creation() { creating = nullptr; }
        Creation(const Creation&) = delete;
        Creation& operator=(const Creation&) = delete;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

private:
    static LRESULT dispatch(CWnd& object, const MSG& message) noexcept;
    static LRESULT forgotten(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    static CWnd* creating;
};

namespace toolkit {

// Tells the hook and frees the exception.
void reportException(CException* exception) noexcept;
void reportException(const char* what) noexcept;

// Runs `body`; an exception that it lets out is reported and `failed` returned.
template <class Result, class Body>
Result guarded(Result failed, Body&& body) noexcept;

}  // namespace toolkit

#include "mfc/CException.h"

#include <exception>

template <class Result, class Body>
Result toolkit::guarded(Result failed, Body&& body) noexcept
{
    try {
        return body();
    } catch (CException* exception) {
        reportException(exception);
    } catch (const std::exception& exception) {
        reportException(exception.what());
    } catch (...) {
        reportException("unknown exception");
    }
    return failed;
}
