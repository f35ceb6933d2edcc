#include "library/controls/HyperLink.h"

#include "library/registry/Registry.h"
#include "library/system/Handles.h"
#include "tests/library/Recorders.h"
#include "tests/support/TestHive.h"

#include <doctest/doctest.h>

#include <string>

namespace {

// A text of a dialog that has become a link, if the address can be opened.
struct CText {
    UniqueWindow m_dialog{
        ::CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 400, 90, nullptr, nullptr, nullptr, nullptr)};
    HWND m_hText = ::CreateWindowA("STATIC", "", WS_CHILD | WS_VISIBLE, 0, 0, 300, 20, m_dialog.get(),
                                   reinterpret_cast<HMENU>(INT_PTR{5}), nullptr, nullptr);
    CWnd m_parent;
    CHyperLink m_link;

    explicit CText(const char* sAddress)
    {
        REQUIRE((m_parent.SubclassWindow(m_dialog.get()) && m_link.Attach(&m_parent, 5, sAddress)));
    }
    LRESULT send(UINT uMessage, WPARAM wParam, LPARAM lParam) const
    {
        return ::SendMessageA(m_hText, uMessage, wParam, lParam);
    }
};

}  // namespace

TEST_CASE("a link opens web and mail addresses alone")
{
    for (const char* sAddress : {"http://intranet/cad", "HTTPS://office.example/a?b=c&d", "mailto:cad@office.example"})
        CHECK(CHyperLink::getTarget(sAddress) == sAddress);
    CHECK(CHyperLink::getTarget(" www.office.example\t") == "http://www.office.example");
    CHECK(CHyperLink::getTarget("cad@office.example") == "mailto:cad@office.example");
    CHECK(CHyperLink::getTarget("MAILTO:cad@office.example") == "MAILTO:cad@office.example");

    for (const char* sOther :
         {"", "http://", "calc.exe", "C:\\tools\\x.exe", "\\\\server\\x@y", "file://c:/x", "javascript:a@b", "x.exe@",
          "@x", "mailto:x", "a@b\\c.exe", "http://a b", "a@b\" /c", "call extension 12", "mailto:javascript:a@b",
          "mailto:a@b?attach=c.dwg", "a?b@c", "a@b,c@d"})
        CHECK(CHyperLink::getTarget(sOther) == "");

    const CString sLongest(("www." + std::string(251, 'x')).c_str());
    CHECK(CHyperLink::getTarget(sLongest) == "http://" + sLongest);
    CHECK(CHyperLink::getTarget(sLongest + "x") == "");
}

TEST_CASE("a link is as wide as its text, has a hand, the focus and the Enter key; other text has none of it")
{
    for (const char* sAddress : {"www.office.example", "extension 12"}) {
        const bool bLink = sAddress[0] == 'w';
        const CText text(sAddress);
        RECT client;
        ::GetClientRect(text.m_hText, &client);
        CHECK((client.right < 300) == bLink);
        CHECK((client.right > 20 && client.bottom == 20));
        CHECK(((::GetWindowLongA(text.m_hText, GWL_STYLE) & WS_TABSTOP) != 0) == bLink);
        CHECK(text.send(WM_NCHITTEST, 0, 0) == (bLink ? HTCLIENT : HTTRANSPARENT));
        MSG enter = {text.m_hText, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
        const LRESULT keys = text.send(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter));
        CHECK(((keys & DLGC_WANTMESSAGE) != 0) == bLink);
        ::SetCursor(nullptr);
        text.send(WM_SETCURSOR, reinterpret_cast<WPARAM>(text.m_hText), HTCLIENT);
        CHECK((::GetCursor() == ::LoadCursorA(nullptr, reinterpret_cast<const char*>(IDC_HAND))) == bLink);
    }
}

TEST_CASE("a link opens by a click that begins and ends on it or by a key, and can be read on any background")
{
    const CTestHive classes(HKEY_CLASSES_ROOT);
    const std::string sProgram = "\"" + besideThisProgram("commandrecorder.exe") + "\" ";
    Tesk::Registry::SetValue(HKEY_CLASSES_ROOT, "http\\shell\\open\\command", "", (sProgram + "%1").c_str());
    const CCommands commands;
    const CText link("www.office.example"), last("www.last.example");
    const LPARAM inside = MAKELPARAM(5, 5), below = MAKELPARAM(5, 25);
    link.send(WM_LBUTTONUP, 0, inside);
    for (const LPARAM up : {below, inside}) {
        link.send(WM_LBUTTONDOWN, MK_LBUTTON, inside);
        link.send(WM_LBUTTONUP, 0, up);
    }
    const std::string sOpened = sProgram + "http://www.office.example\n";
    CHECK(commands.first(1) == sOpened);
    last.send(WM_KEYDOWN, VK_SPACE, 0);
    CHECK(commands.first(2) == sOpened + sProgram + "http://www.last.example\n");

    const int iColour = COLOR_HOTLIGHT;
    const COLORREF before = ::GetSysColor(iColour), face = ::GetSysColor(COLOR_BTNFACE);
    ::SetSysColors(1, &iColour, &face);
    ::RedrawWindow(last.m_hText, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    ::SetSysColors(1, &iColour, &before);
    const HDC hdc = ::GetDC(last.m_hText);
    int iText = 0;
    for (int i = 0; i < 40 * 10; ++i)
        iText += ::GetPixel(hdc, 2 + i % 40, 2 + i / 40) == ::GetSysColor(COLOR_BTNTEXT);
    ::ReleaseDC(last.m_hText, hdc);
    CHECK(iText > 20);
}
