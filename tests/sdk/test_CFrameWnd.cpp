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

}  // namespace

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
