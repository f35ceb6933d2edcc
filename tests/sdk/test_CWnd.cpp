#include "mfc/MessagePump.h"
#include "mfc/afxwin.h"

#include <doctest/doctest.h>

#include <stdexcept>
#include <string>

namespace {

constexpr UINT kAsked = WM_APP + 1, kThrows = WM_APP + 2;
int liveExceptions = 0;

class CountedException : public CException {
public:
    CountedException() { ++liveExceptions; }
    ~CountedException() override { --liveExceptions; }
};

class Handling : public CWnd {
public:
    bool m_takes = false;  // what is asked, before it is handled
    int m_offered = 0, m_handled = 0, m_paints = 0;

    BOOL PreTranslateMessage(MSG* message) override
    {
        m_offered += message->message == kAsked;
        return m_takes && message->message == kAsked;
    }

protected:
    LRESULT OnAsked(WPARAM, LPARAM) { return ++m_handled; }
    LRESULT OnThrows(WPARAM plain, LPARAM)
    {
        if (plain)
            throw std::runtime_error("plain");
        throw new CountedException;
    }
    void OnPaint()
    {
        ++m_paints;
        throw new CountedException;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Handling, CWnd)
    ON_MESSAGE(kAsked, &Handling::OnAsked)
    ON_MESSAGE(kThrows, &Handling::OnThrows)
    ON_WM_PAINT()
END_MESSAGE_MAP()

struct Shown : Handling {
    Shown() { CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, RECT{0, 0, 20, 20}, nullptr, 0); }
};

// Dispatches what waits in the queue.
void pumpWaiting()
{
    MSG message;
    while (::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE))
        toolkit::pumpMessage();
}

}  // namespace

TEST_CASE("the pump offers a message to the window and its parents, until one takes it")
{
    Shown outer;
    Handling inner;
    REQUIRE(inner.Create("STATIC", "", 0, RECT{0, 0, 10, 10}, &outer, 1));
    const auto ask = [&] {
        inner.m_offered = outer.m_offered = inner.m_handled = 0;
        inner.PostMessage(kAsked);
        pumpWaiting();
        return std::to_string(inner.m_offered) + std::to_string(outer.m_offered) + std::to_string(inner.m_handled);
    };
    CHECK(ask() == "111");
    outer.m_takes = true;
    CHECK(ask() == "110");
    inner.m_takes = true;
    CHECK(ask() == "100");
}

TEST_CASE("a handler's exception ends in its own image and is freed")
{
    Shown window;
    CHECK(window.SendMessage(kThrows, FALSE) == 0);
    CHECK(window.SendMessage(kThrows, TRUE) == 0);
    pumpWaiting();
    window.m_paints = 0;
    window.Invalidate();
    pumpWaiting();  // comes to an end: a failed painting is not asked for again
    CHECK(window.m_paints == 1);
    CHECK(liveExceptions == 0);
}

TEST_CASE("subclassing ends on demand, with the object, or with the window")
{
    Shown frame;
    const HWND raw =
        ::CreateWindowExA(0, "EDIT", "text", WS_CHILD, 0, 0, 30, 30, frame.m_hWnd, nullptr, nullptr, nullptr);
    const LONG_PTR procedure = ::GetWindowLongPtrA(raw, GWLP_WNDPROC);
    Handling window, second;
    REQUIRE(window.SubclassWindow(raw));
    CHECK_FALSE(second.SubclassWindow(raw));
    CHECK(CWnd::FromHandle(raw) == &window);
    CHECK(window.UnsubclassWindow() == raw);
    CHECK(::GetWindowLongPtrA(raw, GWLP_WNDPROC) == procedure);
    {
        Handling foreign;  // a window that it cannot destroy
        CHECK(foreign.SubclassWindow(::GetDesktopWindow()));
    }
    CHECK(CWnd::FromHandlePermanent(::GetDesktopWindow()) == nullptr);
    {
        Handling owner;
        REQUIRE(owner.SubclassWindow(raw));
    }
    CHECK_FALSE(::IsWindow(raw));
}
