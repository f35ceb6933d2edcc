#include "TestWindows.h"

#include <doctest/doctest.h>

namespace {

constexpr UINT handled = 100;
constexpr UINT unknown = 101;
constexpr UINT refused = 102;
constexpr UINT childs = 103;
constexpr UINT systemCommand = 0xF123;

class CommandFrame : public TestFrame {
public:
    int m_run = 0;

protected:
    void OnHandled() { ++m_run; }
    void OnUpdateRefused(CCmdUI* state) { state->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CommandFrame, CMDIFrameWnd)
    ON_COMMAND(handled, &CommandFrame::OnHandled)
    ON_COMMAND(refused, &CommandFrame::OnHandled)
    ON_UPDATE_COMMAND_UI(refused, &CommandFrame::OnUpdateRefused)
END_MESSAGE_MAP()

class CommandChild : public CMDIChildWnd {
public:
    UINT m_run = 0;

protected:
    void OnRange(UINT id) { m_run = id; }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CommandChild, CMDIChildWnd)
    ON_COMMAND_RANGE(childs, childs + 5, &CommandChild::OnRange)
END_MESSAGE_MAP()

bool isGrey(const CMenu& menu, UINT position) { return (menu.GetMenuState(position, MF_BYPOSITION) & MF_GRAYED) != 0; }

CRect rectIn(const CWnd& parent, HWND window)
{
    CRect rect;
    ::GetWindowRect(window, rect);
    parent.ScreenToClient(rect);
    return rect;
}

}  // namespace

TEST_CASE("a layout pass lets bands of another image take their part and gives the rest to the client")
{
    TestFrame frame;
    int passes = 0;
    int moves = 0;
    LONG height = 27;
    ForeignWindow* band = nullptr;
    ForeignWindow bar(frame.m_hWnd, 42, [&](UINT message, WPARAM, LPARAM lParam) -> LRESULT {
        if (message == WM_WINDOWPOSCHANGING)
            ++moves;
        if (message != WM_SIZEPARENT)
            return 0;
        ++passes;
        auto* const layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
        CRect mine(layout->rect);
        mine.top = layout->rect.bottom -= height;
        mine.bottom = mine.top + height;
        AfxRepositionWindow(layout, band->handle(), mine);
        if (layout->hDWP)
            frame.RecalcLayout();  // from within the pass: ignored
        return 0;
    });
    band = &bar;
    REQUIRE(frame.CreateClient(nullptr));

    frame.RecalcLayout(TRUE);
    CHECK(passes == 1);
    CHECK(rectIn(frame, bar.handle()) == CRect(0, 273, 400, 300));
    CHECK(rectIn(frame, frame.m_hWndMDIClient) == CRect(0, 0, 400, 273));

    moves = 0;
    frame.RecalcLayout();
    CHECK(passes == 2);
    CHECK(moves == 0);  // nothing moved, so nothing is positioned

    height = 0;
    CRect left;
    frame.RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST, CWnd::reposQuery, left);
    CHECK(left == CRect(0, 0, 400, 300));
    CHECK(rectIn(frame, frame.m_hWndMDIClient).Height() == 273);  // measured only

    height = 50;
    CRect outer;
    frame.GetWindowRect(outer);
    outer.right -= 100;
    frame.MoveWindow(outer);  // a new size lays out by itself
    CHECK(rectIn(frame, frame.m_hWndMDIClient) == CRect(0, 0, 300, 250));
}

TEST_CASE("a menu about to show has the items greyed that nobody handles")
{
    CommandFrame frame;
    REQUIRE(frame.CreateClient(nullptr));
    CommandChild child;
    REQUIRE(child.Create(AfxRegisterWndClass(0), "child", &frame));
    CHECK(frame.MDIGetActive() == &child);

    CMenu menu;
    CMenu sub;
    REQUIRE(menu.CreatePopupMenu());
    REQUIRE(sub.CreatePopupMenu());
    for (const UINT id : {handled, unknown, refused, childs, systemCommand})
        menu.AppendMenu(MF_STRING, id, "item");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), "sub");
    const auto show = [&](int systemMenu) {
        frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), MAKELPARAM(0, systemMenu));
    };
    show(TRUE);
    CHECK_FALSE(isGrey(menu, 1));
    show(FALSE);
    CHECK_FALSE(isGrey(menu, 0));
    CHECK(isGrey(menu, 1));
    CHECK(isGrey(menu, 2));
    CHECK_FALSE(isGrey(menu, 3));  // the active child handles it
    CHECK_FALSE(isGrey(menu, 4));
    CHECK_FALSE(isGrey(menu, 6));
    CHECK(menu.EnableMenuItem(unknown, MF_BYCOMMAND | MF_ENABLED) != static_cast<UINT>(-1));
    CHECK(menu.EnableMenuItem(999, MF_BYCOMMAND | MF_ENABLED) == static_cast<UINT>(-1));
    CHECK_FALSE(isGrey(menu, 1));

    frame.SendMessage(WM_COMMAND, handled);
    CHECK(frame.m_run == 1);
    frame.SendMessage(WM_COMMAND, childs + 5);
    CHECK(child.m_run == childs + 5);
    CHECK(child.DestroyWindow());
    frame.SendMessage(WM_COMMAND, childs);
    CHECK(child.m_run == childs + 5);
    show(FALSE);
    CHECK(isGrey(menu, 3));
}

TEST_CASE("owned handles balance; views own nothing")
{
    const long before = liveHandles();
    {
        CMenu menu;
        REQUIRE(menu.CreatePopupMenu());
        CHECK_FALSE(menu.CreatePopupMenu());
        CHECK(liveHandles() == before + 1);
        CMenu* const view = CMenu::FromHandle(menu.m_hMenu);
        CHECK(view == CMenu::FromHandle(menu.m_hMenu));
        CHECK_FALSE(view->DestroyMenu());
        CHECK(::IsMenu(menu.m_hMenu));
        CHECK(menu.DestroyMenu());
        CHECK_FALSE(menu.DestroyMenu());
        CHECK(liveHandles() == before);

        UniqueHandle invalid(INVALID_HANDLE_VALUE);
        CHECK_FALSE(invalid);
        UniqueHandle event(::CreateEventA(nullptr, FALSE, FALSE, nullptr));
        UniqueHandle moved(std::move(event));
        CHECK_FALSE(event);
        event = std::move(moved);
        CHECK(liveHandles() == before + 1);
        const HANDLE given = event.release();
        CHECK(liveHandles() == before);
        CHECK(::CloseHandle(given));
        moved.reset(::CreateEventA(nullptr, FALSE, FALSE, nullptr));
    }
    CHECK(liveHandles() == before);
}
