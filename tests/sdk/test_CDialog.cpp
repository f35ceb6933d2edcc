#include "mfc/MessagePump.h"
#include "mfc/afxwin.h"

#include <doctest/doctest.h>

#include <functional>

namespace {

class Dialog : public CDialog {
public:
    Dialog(CWnd* parent, std::function<void()> act) : CDialog(100, parent), m_act(std::move(act)) {}

protected:
    LRESULT OnKick(WPARAM, LPARAM)
    {
        m_act();
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    std::function<void()> m_act;
};
BEGIN_MESSAGE_MAP(Dialog, CDialog)
    ON_MESSAGE(WM_KICKIDLE, &Dialog::OnKick)
END_MESSAGE_MAP()

}  // namespace

TEST_CASE("a dialog stops its program's window, in the background too, and lets it go when it cannot show or is quit")
{
    CWnd frame;
    frame.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, RECT{0, 0, 200, 200}, nullptr, 0);
    CHECK(CDialog(9999, &frame).DoModal() == -1);
    CHECK(frame.IsWindowEnabled());

    ::SetActiveWindow(nullptr);
    bool worked = true;
    Dialog dialog(nullptr, [&] {
        worked = frame.IsWindowEnabled();
        ::PostQuitMessage(3);
    });
    CHECK(dialog.DoModal() == -1);
    CHECK_FALSE(worked);
    CHECK(frame.IsWindowEnabled());
    MSG message;  // handed on to the loop outside
    CHECK((::PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && message.wParam == 3));
}
