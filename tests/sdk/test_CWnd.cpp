#include "TestWindows.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace {

constexpr UINT askException = WM_APP + 1;
int liveExceptions = 0;

class CountedException : public CException {
public:
    CountedException() { ++liveExceptions; }
    ~CountedException() override { --liveExceptions; }
};

class Handling : public CWnd {
public:
    bool* m_gone = nullptr;
    CPoint m_mouse;
    HWND m_contextWindow = nullptr;
    int m_sizes = 0;
    int m_paints = 0;

protected:
    LRESULT OnException(WPARAM plain, LPARAM)
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
    void OnMouseMove(UINT, CPoint point) { m_mouse = point; }
    void OnContextMenu(CWnd* window, CPoint) { m_contextWindow = window->m_hWnd; }
    void OnSize(UINT type, int cx, int cy)
    {
        ++m_sizes;
        CWnd::OnSize(type, cx, cy);
    }
    void PostNcDestroy() override
    {
        if (m_gone)
            *m_gone = true;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Handling, CWnd)
    ON_MESSAGE(askException, &Handling::OnException)
    ON_WM_MOUSEMOVE()
    ON_WM_CONTEXTMENU()
    ON_WM_PAINT()
    ON_WM_SIZE()
END_MESSAGE_MAP()

class Watching : public CWnd {
public:
    Watching(CWnd* parent, UINT id) { Create("STATIC", "", WS_VISIBLE, RECT{0, 0, 20, 20}, parent, id); }

    UINT m_take = 0;  // the message that PreTranslateMessage keeps
    std::vector<UINT> m_seen;

    BOOL PreTranslateMessage(MSG* message) override
    {
        m_seen.push_back(message->message);
        return message->message == m_take;
    }
};

// A window without an object, which writes down what is sent or posted to it.
std::vector<UINT> g_seen;

LRESULT CALLBACK noteMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    g_seen.push_back(message);
    return ::DefWindowProcA(window, message, wParam, lParam);
}

HWND plainWindow(HWND parent)
{
    const HWND window = ::CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent,
                                          reinterpret_cast<HMENU>(UINT_PTR{42}), nullptr, nullptr);
    ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&noteMessage));
    g_seen.clear();
    return window;
}

}  // namespace

TEST_CASE("the pump offers a message to the window and its parents, until one takes it")
{
    TestFrame frame;
    Watching outer(&frame, 42);
    const HWND plain = plainWindow(outer.m_hWnd);
    Watching inner(CWnd::FromHandle(plain), 1);
    pumpWaiting();
    const auto post = [&](HWND window, UINT message) {
        inner.m_seen.clear();
        outer.m_seen.clear();
        g_seen.clear();
        ::PostMessageA(window, message, 0, 0);
        pumpWaiting();
    };
    const std::vector<UINT> one = {WM_APP + 3};
    post(inner.m_hWnd, WM_APP + 3);
    CHECK(inner.m_seen == one);
    CHECK(outer.m_seen == one);
    inner.m_take = WM_APP + 3;
    post(inner.m_hWnd, WM_APP + 3);
    CHECK(inner.m_seen == one);
    CHECK(outer.m_seen.empty());
    post(plain, WM_APP + 3);
    CHECK(outer.m_seen == one);
    CHECK(g_seen == one);
    outer.m_take = WM_APP + 3;
    post(plain, WM_APP + 3);
    CHECK(g_seen.empty());
}

TEST_CASE("frame and pump do nothing for a window without an object")
{
    TestFrame frame;
    REQUIRE(frame.CreateClient(nullptr));
    const HWND stranger = plainWindow(frame.m_hWnd);
    frame.RecalcLayout();
    NMHDR header = {stranger, 42, static_cast<UINT>(TCN_SELCHANGING)};
    CHECK(frame.SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header)) == 0);
    ::PostMessageA(stranger, WM_MOUSEMOVE, 0, 0);
    pumpWaiting();
    // What the system sends by itself aside: a layout, what is reflected, what is registered.
    CHECK(std::none_of(g_seen.begin(), g_seen.end(),
                       [](UINT message) { return message == WM_SIZEPARENT || message >= WM_REFLECT_BASE; }));
}

TEST_CASE("a handler's exception ends in its own image and is freed")
{
    Handling window;
    REQUIRE(window.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, RECT{0, 0, 20, 20}, nullptr, 0));
    CHECK(window.SendMessage(askException, FALSE) == 0);
    CHECK(window.SendMessage(askException, TRUE) == 0);
    pumpWaiting();
    window.m_paints = 0;
    window.Invalidate();
    pumpWaiting();  // comes to an end: a failed painting is not asked for again
    CHECK(window.m_paints == 1);
    CHECK(liveExceptions == 0);
}

TEST_CASE("handlers get their message's parameters; subclassing ends with the window or on demand")
{
    TestFrame frame;
    const HWND raw =
        ::CreateWindowExA(0, "EDIT", "text", WS_CHILD, 0, 0, 30, 30, frame.m_hWnd, nullptr, nullptr, nullptr);
    const LONG_PTR procedure = ::GetWindowLongPtrA(raw, GWLP_WNDPROC);
    bool gone = false;
    Handling window;
    window.m_gone = &gone;
    REQUIRE(window.SubclassWindow(raw));
    Handling second;
    CHECK_FALSE(second.SubclassWindow(raw));
    CHECK(CWnd::FromHandle(raw) == &window);
    window.SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(-3, 7));
    CHECK(window.m_mouse == CPoint(-3, 7));
    window.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(frame.m_hWnd), 0);
    CHECK(window.m_contextWindow == frame.m_hWnd);
    window.MoveWindow(RECT{0, 0, 40, 40});
    CHECK(window.m_sizes == 1);

    {
        Handling foreign;  // a window that it cannot destroy
        CHECK(foreign.SubclassWindow(::GetDesktopWindow()));
    }
    CHECK(CWnd::FromHandlePermanent(::GetDesktopWindow()) == nullptr);
    CHECK(window.UnsubclassWindow() == raw);
    CHECK(::GetWindowLongPtrA(raw, GWLP_WNDPROC) == procedure);
    CHECK_FALSE(gone);

    SUBCASE("the window goes first")
    {
        REQUIRE(window.SubclassWindow(raw));
        ::DestroyWindow(raw);
        CHECK(gone);
        CHECK(window.m_hWnd == nullptr);
        CHECK(CWnd::FromHandlePermanent(raw) == nullptr);
        CHECK_FALSE(window.DestroyWindow());
    }
    SUBCASE("the object goes first")
    {
        {
            Handling owner;
            REQUIRE(owner.SubclassWindow(raw));
        }
        CHECK_FALSE(::IsWindow(raw));
    }
}
