#include "TestWindows.h"

#include <doctest/doctest.h>

namespace {

constexpr UINT handled = 100;
constexpr UINT unknown = 101;
constexpr UINT refused = 102;

class CommandFrame : public TestFrame {
protected:
    void OnHandled() {}
    void OnUpdateRefused(CCmdUI* state) { state->Enable(FALSE); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CommandFrame, CMDIFrameWnd)
    ON_COMMAND(handled, &CommandFrame::OnHandled)
    ON_COMMAND(refused, &CommandFrame::OnHandled)
    ON_UPDATE_COMMAND_UI(refused, &CommandFrame::OnUpdateRefused)
END_MESSAGE_MAP()

// Takes a band at the lower edge.
class Bar : public CWnd {
public:
    explicit Bar(CFrameWnd& frame) : m_frame(frame) { Create("STATIC", "", WS_VISIBLE, CRect(), &frame, 42); }

    LONG m_height = 27;
    int m_passes = 0;
    int m_moves = 0;

protected:
    LRESULT OnSizeParent(WPARAM, LPARAM lParam)
    {
        ++m_passes;
        auto* const layout = reinterpret_cast<AFX_SIZEPARENTPARAMS*>(lParam);
        CRect mine(layout->rect);
        mine.top = layout->rect.bottom -= m_height;
        mine.bottom = mine.top + m_height;
        AfxRepositionWindow(layout, m_hWnd, mine);
        if (layout->hDWP)
            m_frame.RecalcLayout();  // from within the pass: ignored
        return 0;
    }
    LRESULT OnMoving(WPARAM, LPARAM)
    {
        ++m_moves;
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    CFrameWnd& m_frame;
};
BEGIN_MESSAGE_MAP(Bar, CWnd)
    ON_MESSAGE(WM_SIZEPARENT, &Bar::OnSizeParent)
    ON_MESSAGE(WM_WINDOWPOSCHANGING, &Bar::OnMoving)
END_MESSAGE_MAP()

CRect rectIn(const CWnd& parent, HWND window)
{
    CRect rect;
    ::GetWindowRect(window, rect);
    parent.ScreenToClient(rect);
    return rect;
}

}  // namespace

TEST_CASE("a layout pass lets the bars take their part and gives the rest to the client")
{
    TestFrame frame;
    Bar bar(frame);
    REQUIRE(frame.CreateClient(nullptr));
    bar.m_passes = 0;

    frame.RecalcLayout(TRUE);
    CHECK(bar.m_passes == 1);
    CHECK(rectIn(frame, bar.m_hWnd) == CRect(0, 273, 400, 300));
    CHECK(rectIn(frame, frame.m_hWndMDIClient) == CRect(0, 0, 400, 273));

    bar.m_moves = 0;
    frame.RecalcLayout();
    CHECK(bar.m_passes == 2);
    CHECK(bar.m_moves == 0);  // nothing moved, so nothing is positioned

    bar.m_height = 0;
    CRect left;
    frame.RepositionBars(0, 0xFFFF, AFX_IDW_PANE_FIRST, CWnd::reposQuery, left);
    CHECK(left == CRect(0, 0, 400, 300));
    CHECK(rectIn(frame, frame.m_hWndMDIClient).Height() == 273);  // measured only

    bar.m_height = 50;
    CRect outer;
    frame.GetWindowRect(outer);
    outer.right -= 100;
    frame.MoveWindow(outer);  // a new size lays out by itself
    CHECK(rectIn(frame, frame.m_hWndMDIClient) == CRect(0, 0, 300, 250));
}

TEST_CASE("a menu about to show has the items greyed that nobody handles")
{
    CommandFrame frame;
    CMenu menu;
    REQUIRE(menu.CreatePopupMenu());
    for (const UINT id : {handled, unknown, refused})
        menu.AppendMenu(MF_STRING, id, "item");
    const auto grey = [&](int systemMenu) {
        frame.SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu.m_hMenu), MAKELPARAM(0, systemMenu));
        std::string states;
        for (UINT i = 0; i < 3; ++i)
            states += (menu.GetMenuState(i, MF_BYPOSITION) & MF_GRAYED) != 0 ? 'x' : '-';
        return states;
    };
    CHECK(grey(TRUE) == "---");
    CHECK(grey(FALSE) == "-xx");
}
