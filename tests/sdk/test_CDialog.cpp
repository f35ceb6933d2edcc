#include "TestWindows.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace {

// A dialog template in memory, made of 16-bit words.
class Template {
public:
    Template()
    {
        add32(DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU);
        add32(0);
        add({0, 0, 0, 162, 124, 0, 0});
        text("Options");
    }
    Template& control(WORD atom, WORD id, const char* caption, DWORD style)
    {
        m_words.resize((m_words.size() + 1) & ~std::size_t{1});
        add32(style | WS_CHILD | WS_VISIBLE);
        add32(0);
        add({7, static_cast<WORD>(7 + 12 * m_words[4]), 60, 10, id, 0xFFFF, atom});
        text(caption);
        add({0});
        ++m_words[4];
        return *this;
    }
    const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(m_words.data()); }

private:
    void add(std::initializer_list<WORD> words) { m_words.insert(m_words.end(), words); }
    void add32(DWORD value) { add({LOWORD(value), HIWORD(value)}); }
    void text(const char* ascii)
    {
        for (; *ascii; ++ascii)
            add({static_cast<WORD>(*ascii)});
        add({0});
    }
    std::vector<WORD> m_words;
};

constexpr UINT runScript = WM_APP + 20;
constexpr WORD button = 0x80;
constexpr WORD edit = 0x81;

class Options : public CDialog {
public:
    using Script = std::function<void(Options&)>;
    Options(const Template& t, Script script, CWnd* parent) : CDialog(t.get(), parent), m_script(std::move(script)) {}

    int m_use = TRUE;
    int m_detail = FALSE;
    int m_place = -1;
    int m_kicks = 0;
    bool m_updates = true;

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
        if (m_updates)
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
    ON_UPDATE_COMMAND_UI(1000, &Options::OnUpdate)
    ON_MESSAGE(runScript, &Options::OnScript)
    ON_MESSAGE(WM_KICKIDLE, &Options::OnKick)
END_MESSAGE_MAP()

const Template& optionsTemplate()
{
    static const Template made = Template()
                                     .control(button, 1003, "Use", BS_AUTOCHECKBOX | WS_TABSTOP)
                                     .control(button, 1004, "Detail", BS_AUTOCHECKBOX | WS_TABSTOP)
                                     .control(edit, 1010, "", WS_TABSTOP)
                                     .control(button, 1002, "Place", BS_GROUPBOX | WS_GROUP)
                                     .control(button, 1000, "Top", BS_AUTORADIOBUTTON | WS_GROUP)
                                     .control(button, 1001, "Bottom", BS_AUTORADIOBUTTON)
                                     .control(button, IDOK, "OK", BS_DEFPUSHBUTTON | WS_GROUP)
                                     .control(button, IDCANCEL, "Cancel", BS_PUSHBUTTON);
    return made;
}

void pressKey(Options& dialog, WPARAM key) { ::PostMessageA(::GetDlgItem(dialog.m_hWnd, 1003), WM_KEYDOWN, key, 1); }

}  // namespace

TEST_CASE("a dialog shows its members, and saves them on OK alone")
{
    TestFrame frame;
    frame.ShowWindow(SW_SHOW);
    bool ownerDisabled = false;
    std::string shown;
    const auto change = [&](Options& d) {
        ownerDisabled = !::IsWindowEnabled(frame.m_hWnd);
        for (const int id : {1003, 1004, 1000, 1001})
            shown += d.GetDlgItem(id)->SendMessage(BM_GETCHECK) ? '1' : '0';
        d.click(1000);
    };
    SUBCASE("OK, without a parent: over the thread's own window")
    {
        Options dialog(
            optionsTemplate(),
            [&](Options& d) {
                change(d);
                d.click(IDOK);
            },
            nullptr);
        dialog.m_place = 1;
        CHECK(dialog.DoModal() == IDOK);
        CHECK(dialog.m_place == 0);
        CHECK(dialog.m_hWnd == nullptr);
        CHECK(shown == "1001");
    }
    SUBCASE("Escape")
    {
        Options dialog(
            optionsTemplate(),
            [&](Options& d) {
                change(d);
                pressKey(d, VK_ESCAPE);
            },
            &frame);
        dialog.m_updates = false;  // their handlers exchange, too
        CHECK(dialog.DoModal() == IDCANCEL);
        CHECK(shown == "1000");
        CHECK(dialog.m_place == -1);
    }
    SUBCASE("Return presses the default button")
    {
        Options dialog(
            optionsTemplate(),
            [&](Options& d) {
                change(d);
                pressKey(d, VK_RETURN);
            },
            &frame);
        CHECK(dialog.DoModal() == IDOK);
        CHECK(dialog.m_place == 0);
    }
    SUBCASE("the caption's close box")
    {
        Options dialog(
            optionsTemplate(),
            [&](Options& d) {
                change(d);
                d.PostMessage(WM_CLOSE);
            },
            &frame);
        CHECK(dialog.DoModal() == IDCANCEL);
    }
    CHECK(ownerDisabled);
    CHECK(frame.IsWindowEnabled());
}

TEST_CASE("a dialog's controls follow the box that governs them")
{
    TestFrame frame;
    frame.ShowWindow(SW_SHOW);
    std::vector<bool> detail;
    std::vector<bool> place;
    int step = 0;
    Options dialog(
        optionsTemplate(),
        [&](Options& d) {
            detail.push_back(d.isEnabled(1004));
            place.push_back(d.isEnabled(1000));
            CHECK(d.isEnabled(1003));
            CHECK(d.isEnabled(1001));  // has no update handler here
            if (++step == 3)
                return d.click(IDOK);
            d.click(1003);
            d.PostMessage(runScript);
        },
        &frame);
    dialog.m_detail = TRUE;
    CHECK(dialog.DoModal() == IDOK);
    CHECK(detail == std::vector<bool>{true, false, true});
    CHECK(place == detail);
    CHECK(dialog.m_detail == TRUE);
}

TEST_CASE("a dialog without messages is kicked, and greys before it waits")
{
    TestFrame frame;
    bool greyed = false;
    Options* open = nullptr;
    ForeignWindow clock(frame.m_hWnd, 9, [&](UINT message, WPARAM, LPARAM) -> LRESULT {
        if (message != WM_TIMER)
            return 0;
        greyed = !open->isEnabled(1004);
        open->click(IDCANCEL);
        return 1;
    });
    Options dialog(
        optionsTemplate(),
        [&](Options& d) {
            open = &d;
            ::SendMessageA(::GetDlgItem(d.m_hWnd, 1003), BM_SETCHECK, BST_UNCHECKED, 0);
            ::SetTimer(clock.handle(), 1, 200, nullptr);
        },
        &frame);
    CHECK(dialog.DoModal() == IDCANCEL);
    CHECK(greyed);
    CHECK(dialog.m_kicks > 0);
}

TEST_CASE("a dialog that cannot show or is quit leaves its owner working")
{
    TestFrame frame;
    CDialog missing(9999, &frame);
    CHECK(missing.DoModal() == -1);

    Options quit(
        optionsTemplate(), [](Options&) { ::PostQuitMessage(3); }, &frame);
    CHECK(quit.DoModal() == -1);
    CHECK(quit.m_hWnd == nullptr);
    CHECK(MessagePump().run() == 3);  // handed on to the loop outside
    CHECK(frame.IsWindowEnabled());
    CHECK(CWnd::FromHandlePermanent(frame.m_hWnd) == &frame);
}
