#include "TestWindows.h"

#include "mfc/afxcmn.h"
#include <doctest/doctest.h>

#include <stdexcept>
#include <string>

namespace {

constexpr UINT askException = WM_APP + 1;
int liveExceptions = 0;
std::string reported;

class CountedException : public CException {
public:
    CountedException() { ++liveExceptions; }
    ~CountedException() override { --liveExceptions; }
    BOOL GetErrorMessage(char* buffer, UINT capacity) const override
    {
        return copyMessage("counted", buffer, capacity);
    }
};

class Handling : public CWnd {
public:
    bool m_plain = false;
    bool* m_gone = nullptr;
    CPoint m_mouse;
    HWND m_contextWindow = nullptr;
    int m_sizes = 0;

protected:
    LRESULT OnException(WPARAM, LPARAM)
    {
        if (m_plain)
            throw std::runtime_error("plain");
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
    ON_WM_SIZE()
END_MESSAGE_MAP()

class Strip : public CTabCtrl {
public:
    LRESULT m_answer = 0;
    int m_changes = 0;

protected:
    void OnSelChanging(NMHDR*, LRESULT* result) { *result = m_answer; }
    void OnSelChange(NMHDR*, LRESULT*) { ++m_changes; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Strip, CTabCtrl)
    ON_NOTIFY_REFLECT(TCN_SELCHANGING, &Strip::OnSelChanging)
    ON_NOTIFY_REFLECT(TCN_SELCHANGE, &Strip::OnSelChange)
END_MESSAGE_MAP()

class Translating : public CWnd {
public:
    UINT m_take = 0;
    int m_seen = 0;
    BOOL PreTranslateMessage(MSG* message) override
    {
        ++m_seen;
        if (message->message == WM_APP + 9)
            throw new CountedException;
        return message->message == m_take;
    }
};

WNDPROC underneath = nullptr;

LRESULT CALLBACK overProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return ::CallWindowProcA(underneath, window, message, wParam, lParam);
}

void record(const CException& exception)
{
    char text[20];
    exception.GetErrorMessage(text, sizeof text);
    reported = text;
}

LRESULT notify(const CWnd& parent, HWND sender, UINT code)
{
    NMHDR header = {sender, static_cast<UINT_PTR>(::GetDlgCtrlID(sender)), code};
    return parent.SendMessage(WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

}  // namespace

TEST_CASE("a parent's notifications reach their sender, in this image or another")
{
    TestFrame frame;
    Strip strip;
    REQUIRE(strip.Create(WS_CHILD | WS_VISIBLE, RECT{0, 0, 200, 30}, &frame, 42));
    CHECK(notify(frame, strip.m_hWnd, TCN_SELCHANGING) == 0);
    strip.m_answer = TRUE;
    CHECK(notify(frame, strip.m_hWnd, TCN_SELCHANGING) == TRUE);

    // A real click on the second tab is reported by the control itself.
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<char*>("drawing");
    strip.InsertItem(0, &item);
    strip.InsertItem(1, &item);
    RECT second;
    strip.GetItemRect(1, &second);
    const LPARAM at = MAKELPARAM((second.left + second.right) / 2, (second.top + second.bottom) / 2);
    strip.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at);
    strip.SendMessage(WM_LBUTTONUP, 0, at);
    CHECK(strip.GetCurSel() == 0);
    CHECK(strip.m_changes == 0);
    strip.m_answer = FALSE;
    strip.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at);
    strip.SendMessage(WM_LBUTTONUP, 0, at);
    CHECK(strip.GetCurSel() == 1);
    CHECK(strip.m_changes == 1);

    UINT code = 0;
    ForeignWindow foreign(frame.m_hWnd, 77, [&](UINT message, WPARAM, LPARAM lParam) -> LRESULT {
        if (message == WM_REFLECT_BASE + WM_NOTIFY)
            code = reinterpret_cast<NMHDR*>(lParam)->code;
        return message == WM_REFLECT_BASE + WM_NOTIFY ? 5 : 0;
    });
    CHECK(notify(frame, foreign.handle(), static_cast<UINT>(TCN_SELCHANGING)) == 5);
    CHECK(code == static_cast<UINT>(TCN_SELCHANGING));
}

TEST_CASE("the pump offers a message to the window and its parents, whichever image they are of")
{
    TestFrame frame;
    int foreignSaw = 0;
    bool foreignTakes = false;
    ForeignWindow foreign(frame.m_hWnd, 77, [&](UINT message, WPARAM, LPARAM lParam) -> LRESULT {
        if (message != AfxPreTranslateMessageId())
            return 0;
        CHECK(reinterpret_cast<MSG*>(lParam)->message >= WM_APP);
        ++foreignSaw;
        return foreignTakes;
    });
    Translating inner;
    REQUIRE(inner.Create("STATIC", "", WS_VISIBLE, RECT{0, 0, 5, 5}, CWnd::FromHandle(foreign.handle()), 1));

    MSG message = {inner.m_hWnd, WM_APP + 3, 0, 0, 0, {0, 0}};
    CHECK_FALSE(AfxPreTranslate(message));
    CHECK(inner.m_seen == 1);
    CHECK(foreignSaw == 1);
    foreignTakes = true;
    CHECK(AfxPreTranslate(message));
    CHECK(foreignSaw == 2);
    inner.m_take = WM_APP + 3;
    CHECK(AfxPreTranslate(message));
    CHECK(foreignSaw == 2);
    inner.m_take = 0;
    CHECK_FALSE(AfxPreTranslate(message, inner.m_hWnd));
    CHECK(foreignSaw == 2);

    // The other way round: another image's pump asks our window.
    inner.m_take = WM_APP + 4;
    message.message = WM_APP + 4;
    CHECK(inner.SendMessage(AfxPreTranslateMessageId(), 0, reinterpret_cast<LPARAM>(&message)) == TRUE);
    inner.m_take = WM_APP + 5;
    ::PostMessageA(inner.m_hWnd, WM_APP + 5, 0, 0);
    const int seen = inner.m_seen;
    pumpWaiting();
    CHECK(inner.m_seen > seen);

    AfxSetExceptionHook(&record);
    message.message = WM_APP + 9;
    foreignTakes = false;
    CHECK_FALSE(AfxPreTranslate(message));
    CHECK(inner.SendMessage(AfxPreTranslateMessageId(), 0, reinterpret_cast<LPARAM>(&message)) == FALSE);
    CHECK(liveExceptions == 0);
    AfxSetExceptionHook(nullptr);
}

TEST_CASE("an exception ends in the window procedure, is reported and freed")
{
    Handling window;
    REQUIRE(window.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP, RECT{0, 0, 20, 20}, nullptr, 0));
    AfxSetExceptionHook(&record);
    reported.clear();
    CHECK(window.SendMessage(askException) == 0);
    CHECK(reported == "counted");
    CHECK(liveExceptions == 0);
    AfxSetExceptionHook(nullptr);
    CHECK(window.SendMessage(askException) == 0);
    CHECK(liveExceptions == 0);
    window.m_plain = true;
    CHECK(window.SendMessage(askException) == 0);
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
    CHECK(window.GetWindowText() == "text");
    CHECK(window.ModifyStyleEx(0, WS_EX_CLIENTEDGE, SWP_FRAMECHANGED));
    CHECK_FALSE(window.ModifyStyleEx(0, WS_EX_CLIENTEDGE));

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
    SUBCASE("somebody else lies over us when we let go")
    {
        REQUIRE(window.SubclassWindow(raw));
        underneath = reinterpret_cast<WNDPROC>(
            ::SetWindowLongPtrA(raw, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&overProcedure)));
        window.UnsubclassWindow();
        CHECK(CWnd::FromHandle(raw)->GetWindowText() == "text");  // still the edit control's
        ::DestroyWindow(raw);
        CHECK_FALSE(gone);
    }
}
