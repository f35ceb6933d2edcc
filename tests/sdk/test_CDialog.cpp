#include "TestWindows.h"

#include <doctest/doctest.h>

#include <functional>

namespace {

class Dialog : public CDialog {
public:
    using Act = std::function<void(Dialog&)>;
    Dialog(CWnd* parent, Act act) : CDialog(100, parent), m_act(std::move(act)) {}

    int m_unsent = 0;  // offered to PreTranslateMessage, but never in the queue

protected:
    BOOL PreTranslateMessage(MSG* message) override
    {
        m_unsent += message->message == WM_KICKIDLE;
        return CDialog::PreTranslateMessage(message);
    }
    LRESULT OnKick(WPARAM, LPARAM)
    {
        m_act(*this);
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    Act m_act;
};
BEGIN_MESSAGE_MAP(Dialog, CDialog)
    ON_MESSAGE(WM_KICKIDLE, &Dialog::OnKick)
END_MESSAGE_MAP()

}  // namespace

TEST_CASE("a dialog without a parent stops the window that is worked with or would be, and ends with Escape")
{
    TestFrame frame;
    frame.ShowWindow(SW_SHOW);
    SUBCASE("in the foreground") {}
    SUBCASE("in the background") { ::SetActiveWindow(nullptr); }
    bool ownerWorked = true;
    Dialog dialog(nullptr, [&](Dialog& d) {
        ownerWorked = frame.IsWindowEnabled();
        ::PostMessageA(::GetDlgItem(d.m_hWnd, 1000), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    CHECK(dialog.DoModal() == IDCANCEL);
    CHECK_FALSE(ownerWorked);
    CHECK(frame.IsWindowEnabled());
    CHECK(dialog.m_unsent == 0);
}

TEST_CASE("a dialog that cannot show or is quit leaves its owner working")
{
    TestFrame frame;
    CDialog missing(9999, &frame);
    CHECK(missing.DoModal() == -1);

    Dialog quit(&frame, [](Dialog&) { ::PostQuitMessage(3); });
    CHECK(quit.DoModal() == -1);
    CHECK(quit.m_hWnd == nullptr);
    CHECK(pumpWaiting() == 3);  // handed on to the loop outside
    CHECK(frame.IsWindowEnabled());
}
