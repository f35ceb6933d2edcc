// The observation commands, on a plain tab control with the strip's identifier.

#include "HostFixture.h"

#include "host/observation/Deflate.h"
#include "host/observation/Screenshot.h"
#include "host/observation/Windows.h"
#include "mfc/afxcmn.h"
#include "objectarx/rxmfcapi.h"

#include <cstring>

namespace {

// What the strip is to an observer: tabs, a menu on a right click, a balloon.
class PlainStrip : public CWnd {
public:
    explicit PlainStrip(CWnd& frame) : m_frame(frame.m_hWnd)
    {
        const HWND window =
            ::CreateWindowExA(0, WC_TABCONTROLA, "", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 10, 20, 600, 27, m_frame,
                              reinterpret_cast<HMENU>(UINT_PTR{42}), nullptr, nullptr);
        SubclassWindow(window);
        ::BringWindowToTop(window);
        m_tip = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_BALLOON | TTS_ALWAYSTIP, 0, 0,
                                  0, 0, m_frame, nullptr, nullptr, nullptr);
        static char text[] = "first\nsecond";
        TOOLINFOA tool{};
        tool.cbSize = TTTOOLINFOA_V2_SIZE;
        tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
        tool.hwnd = m_frame;
        tool.uId = reinterpret_cast<UINT_PTR>(window);
        tool.lpszText = text;
        ::SendMessageA(m_tip, TTM_SETMAXTIPWIDTH, 0, 32767);
        ::SendMessageA(m_tip, TTM_SETTITLEA, 1, reinterpret_cast<LPARAM>("The title"));
        ::SendMessageA(m_tip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
    ~PlainStrip() override
    {
        ::DestroyWindow(m_tip);
        DestroyWindow();
    }
    void addTab(const char* sText, const AcApDocument* pDocument)
    {
        TCITEMA item{};
        item.mask = TCIF_TEXT | TCIF_IMAGE | TCIF_PARAM;
        item.iImage = 3;
        item.pszText = const_cast<char*>(sText);
        item.lParam = reinterpret_cast<LPARAM>(pDocument);
        ::SendMessageA(m_hWnd, TCM_INSERTITEMA, 100, reinterpret_cast<LPARAM>(&item));
    }

    UINT chosen = 99;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_CONTEXTMENU)
            return CWnd::WindowProc(message, wParam, lParam);
        const HMENU menu = ::CreatePopupMenu();
        const HMENU submenu = ::CreatePopupMenu();
        ::AppendMenuA(submenu, MF_STRING, 21, "a.dwg");
        ::AppendMenuA(submenu, MF_STRING, 22, "b.dwg");
        ::AppendMenuA(menu, MF_STRING, 11, "&Save");
        ::AppendMenuA(menu, MF_STRING | MF_GRAYED, 12, "Close");
        ::AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        ::AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(submenu), "Xrefs");
        const CPoint point(lParam);
        chosen = static_cast<UINT>(
            ::TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0, m_hWnd, nullptr));
        ::DestroyMenu(menu);
        return 0;
    }

private:
    HWND m_frame;
    HWND m_tip;
};

class VisibleHost : public HostFixture {
public:
    VisibleHost() : HostFixture(true) {}

    // The output without the echoed command.
    std::string observe(const std::string& sLine)
    {
        const host::Result result = application.execute(sLine);
        CHECK(result.succeeded);
        return result.output.substr(result.output.find('\n') + 1);
    }
    bool contains(const std::string& text, const std::string& part)
    {
        const bool found = text.find(part) != std::string::npos;
        CHECK_MESSAGE(found, text);
        return found;
    }
};

using Lines = std::vector<std::string>;

std::string hexadecimal(const std::string& bytes)
{
    std::string text;
    for (const char c : bytes) {
        text += "0123456789abcdef"[static_cast<unsigned char>(c) >> 4];
        text += "0123456789abcdef"[c & 15];
    }
    return text;
}

int answered = 0;

void askTwice()
{
    answered = ::MessageBoxA(acedGetAcadFrame()->m_hWnd, "Really?\nQuite?", "First", MB_YESNOCANCEL);
    if (answered == IDYES)
        answered = 100 + ::MessageBoxA(acedGetAcadFrame()->m_hWnd, "Done", "Second", MB_OK);
}

}  // namespace

TEST_CASE_FIXTURE(VisibleHost, "STRIP tells of a strip and of none")
{
    CHECK(observe("STRIP") == "strip: none\n");
    refused("CLICK 0", "no tab 0");
    CHECK(observe("DIALOG") == "dialog: none\n");
    refused("PRESS 1", "no dialog");

    REQUIRE(run("OPEN " + drawing("a.dwg")));
    PlainStrip strip(application.frame());
    strip.addTab("one", acDocManager->curDocument());
    strip.addTab("two", nullptr);
    ::SendMessageA(strip.m_hWnd, TCM_SETCURSEL, 1, 0);
    RECT client;
    ::GetWindowRect(application.frame().m_hWndMDIClient, &client);
    ::MapWindowPoints(nullptr, application.frame().m_hWnd, reinterpret_cast<POINT*>(&client), 2);
    const std::string sClient = std::to_string(client.left) + "," + std::to_string(client.top) + "," +
                                std::to_string(client.right) + "," + std::to_string(client.bottom);
    CHECK(observe("STRIP") == "strip: visible=1 rect=10,20,610,47 client=" + sClient + " tabs=2 selected=1\n" +
                                  "tab 0: text=\"one\" image=3 document=\"" + path("a.dwg") + "\"\n" +
                                  "tab 1: text=\"two\" image=3 document=\"?\"\n");
    ::ShowWindow(strip.m_hWnd, SW_HIDE);
    contains(observe("STRIP"), "strip: visible=0 ");
}

TEST_CASE_FIXTURE(VisibleHost, "CLICK and HOVER act on the tab with the mouse")
{
    PlainStrip strip(application.frame());
    for (int i = 0; i < 30; ++i)  // more than there is room for
        strip.addTab(("a longish tab " + std::to_string(i)).c_str(), nullptr);
    CHECK(run("CLICK 2"));
    CHECK(::SendMessageA(strip.m_hWnd, TCM_GETCURSEL, 0, 0) == 2);
    CHECK(run("CLICK 29"));
    CHECK(::SendMessageA(strip.m_hWnd, TCM_GETCURSEL, 0, 0) == 29);
    CHECK(run("CLICK 3"));
    CHECK(::SendMessageA(strip.m_hWnd, TCM_GETCURSEL, 0, 0) == 3);
    refused("CLICK 30", "no tab 30");
    CHECK(observe("HOVER 28") == "tip: title=\"The title\" text=\"first\\nsecond\"\n");
    CHECK(observe("HOVER 29") == "tip: title=\"The title\" text=\"first\\nsecond\"\n");
}

TEST_CASE_FIXTURE(VisibleHost, "MENU lists the items, escapes, or chooses one")
{
    PlainStrip strip(application.frame());
    strip.addTab("one", nullptr);
    CHECK(observe("MENU 0") == "item 11: \"&Save\" enabled=1\nitem 12: \"Close\" enabled=0\nitem -\n"
                               "item 0: \"Xrefs\" enabled=1\n  item 21: \"a.dwg\" enabled=1\n"
                               "  item 22: \"b.dwg\" enabled=1\n");
    CHECK(strip.chosen == 0);
    for (const UINT id : {11u, 22u, 21u}) {
        CHECK(run("MENU 0 " + std::to_string(id)));
        CHECK(strip.chosen == id);
    }
    refused("MENU 0 77", "no item 77");
    CHECK(strip.chosen == 0);
    refused("MENU 0 12", "is disabled");
    CHECK(run("MENU 0 SHOT " + path("menu.png")));
    CHECK(::GetFileAttributesA(path("menu.png").c_str()) != INVALID_FILE_ATTRIBUTES);
}

TEST_CASE_FIXTURE(VisibleHost, "script lines reach the dialog that an earlier line opened")
{
    REQUIRE(acedRegCmds->addCommand("TEST", "AskTwice", "AskTwice", ACRX_CMD_MODAL, askTwice) == Acad::eOk);
    const host::Result result =
        application.execute(Lines{"AskTwice", "DIALOG", "PRESS 6", "WAIT 20", "DIALOG", "PRESS 1", "STRIP"});
    CHECK(result.succeeded);
    CHECK(answered == 100 + IDOK);
    contains(result.output, "dialog: \"First\"\n");
    contains(result.output, ": \"Really?\\nQuite?\" checked=0 enabled=1\n");
    contains(result.output, "dialog: \"Second\"\n");

    // A line for later does not hang before a dialog that nobody answers.
    const host::Result stuck = application.execute(Lines{"AskTwice", "NEW"});
    CHECK_FALSE(stuck.succeeded);
    CHECK(answered == IDCANCEL);
    contains(stuck.output, "The dialog \"First\" stands in the script's way");
    CHECK(documents().count() == 1);
}

TEST_CASE_FIXTURE(VisibleHost, "SHOT writes a picture that can be read back")
{
    CHECK(run("SHOT " + path("shot.png")));
    std::ifstream file(path("shot.png"), std::ios::binary);
    std::string png((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    REQUIRE(png.size() > 100);
    CHECK(png.substr(0, 8) == "\x89PNG\r\n\x1a\n");
    refused("SHOT " + path("missing\\shot.png"), "shot.png");
}

TEST_CASE("a picture becomes the bytes that the format demands")
{
    host::observation::Picture picture;
    picture.width = 2;
    picture.height = 2;
    picture.pixels = {1, 2, 3, 1, 2, 3, 1, 2, 3, 1, 2, 3};
    CHECK(hexadecimal(host::observation::toPng(picture)) ==
          "89504e470d0a1a0a0000000d4948445200000002000000020802000000fdd49a73000000124944415478016362646266"
          "6462666200030000b20011f0e054cf0000000049454e44ae426082");
    // Both were read back by other programs. Bytes of all code lengths, and runs short, long and longest.
    std::string data = "abc\xF0\xFF";
    for (const std::size_t run : {2u, 3u, 4u, 10u, 11u, 14u, 258u, 259u, 300u, 700u})
        data += std::string(run, static_cast<char>(run)) + "-";
    CHECK(hexadecimal(host::observation::zlibCompressed(data)) ==
          "78014b4c4afef09f89499799995997050874b9e040971b0174f910000874991000011000011000011000011000011000"
          "0110000110000110000110000110000110000110000a74994781aece28400004400004d0d1dd330a4601022000022000"
          "02200002200002200002200002200002200002200010e8020008024161");
}
