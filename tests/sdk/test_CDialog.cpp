#include "TestWindows.h"

#include <doctest/doctest.h>

namespace {

constexpr UINT runScript = WM_APP + 20;

class Options : public CDialog {
public:
    using Script = std::function<void(Options&)>;
    Options(CWnd* parent, Script script) : CDialog(100, parent), m_script(std::move(script)) {}

    int m_use = TRUE;
    int m_detail = FALSE;
    int m_place = 1;
    int m_kicks = 0;
    int m_unsent = 0;  // offered to PreTranslateMessage, but never in the queue

    bool isEnabled(int id) const { return ::IsWindowEnabled(::GetDlgItem(m_hWnd, id)) != FALSE; }
    void click(int id) { ::SendMessageA(::GetDlgItem(m_hWnd, id), BM_CLICK, 0, 0); }

protected:
    BOOL OnInitDialog() override
    {
        PostMessage(runScript);
        return CDialog::OnInitDialog();
    }
    BOOL PreTranslateMessage(MSG* message) override
    {
        m_unsent += message->message == WM_KICKIDLE;
        UpdateDialogControls(this, FALSE);
        return CDialog::PreTranslateMessage(message);
    }
    void DoDataExchange(CDataExchange* exchange) override
    {
        DDX_Check(exchange, 1003, m_use);
        DDX_Check(exchange, 1004, m_detail);
        DDX_Radio(exchange, 1000, m_place);
        DDX_Check(exchange, 4711, m_detail);  // no such control
    }
    void OnUpdate(CCmdUI* state)
    {
        UpdateData(TRUE);
        state->Enable(m_use);
    }
    LRESULT OnScript(WPARAM, LPARAM)
    {
        m_script(*this);
        return 0;
    }
    LRESULT OnKick(WPARAM, LPARAM)
    {
        ++m_kicks;
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    Script m_script;
};
BEGIN_MESSAGE_MAP(Options, CDialog)
    ON_UPDATE_COMMAND_UI(1004, &Options::OnUpdate)
    ON_MESSAGE(runScript, &Options::OnScript)
    ON_MESSAGE(WM_TIMER, &Options::OnScript)
    ON_MESSAGE(WM_KICKIDLE, &Options::OnKick)
END_MESSAGE_MAP()

}  // namespace

TEST_CASE("a modal dialog exchanges its data and updates its controls before each message")
{
    TestFrame frame;
    frame.ShowWindow(SW_SHOW);
    bool hasParent = true;
    SUBCASE("over its parent") {}
    SUBCASE("without one, over the thread's own window") { hasParent = false; }
    int step = 0;
    std::string states;
    bool ownerWorked = false;
    Options dialog(hasParent ? &frame : nullptr, [&](Options& d) {
        ownerWorked = ownerWorked || frame.IsWindowEnabled();
        states += d.isEnabled(1004) ? '1' : '0';
        if (++step == 4) {
            d.click(1000);
            return d.click(IDOK);
        }
        if (step < 3)
            d.click(1003);
        d.PostMessage(runScript);
    });
    dialog.m_detail = TRUE;
    CHECK(dialog.DoModal() == IDOK);
    CHECK(states == "1011");
    CHECK_FALSE(ownerWorked);
    CHECK(frame.IsWindowEnabled());
    CHECK(dialog.m_detail == TRUE);
    CHECK(dialog.m_place == 0);
    CHECK(dialog.m_hWnd == nullptr);
}

TEST_CASE("a dialog without messages is kicked; nothing is offered to it that is not in the queue")
{
    TestFrame frame;
    Options dialog(&frame, [&](Options& d) {
        if (d.m_kicks == 0)
            ::SetTimer(d.m_hWnd, 1, 50, nullptr);
        else
            ::PostMessageA(::GetDlgItem(d.m_hWnd, 1003), WM_KEYDOWN, VK_ESCAPE, 1);
    });
    CHECK(dialog.DoModal() == IDCANCEL);
    CHECK(dialog.m_kicks > 0);
    CHECK(dialog.m_unsent == 0);
}

TEST_CASE("a dialog that cannot show or is quit leaves its owner working")
{
    TestFrame frame;
    CDialog missing(9999, &frame);
    CHECK(missing.DoModal() == -1);

    Options quit(&frame, [](Options&) { ::PostQuitMessage(3); });
    CHECK(quit.DoModal() == -1);
    CHECK(quit.m_hWnd == nullptr);
    CHECK(pumpWaiting() == 3);  // handed on to the loop outside
    CHECK(frame.IsWindowEnabled());
}
