#include "library/controls/HyperLink.h"

#include "library/system/Handles.h"

#include <doctest/doctest.h>

#include <string>

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
    const UniqueWindow dialog(
        ::CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 400, 90, nullptr, nullptr, nullptr, nullptr));
    CWnd parent;
    REQUIRE(parent.SubclassWindow(dialog.get()));
    for (const char* sAddress : {"www.office.example", "extension 12"}) {
        const bool bLink = sAddress[0] == 'w';
        const HWND hText = ::CreateWindowA("STATIC", "", WS_CHILD, 0, 0, 300, 20, dialog.get(),
                                           reinterpret_cast<HMENU>(INT_PTR{5}), nullptr, nullptr);
        CHyperLink link;
        REQUIRE(link.Attach(&parent, 5, sAddress));
        RECT client;
        ::GetClientRect(hText, &client);
        CHECK((client.right < 300) == bLink);
        CHECK((client.right > 20 && client.bottom == 20));
        CHECK(((::GetWindowLongA(hText, GWL_STYLE) & WS_TABSTOP) != 0) == bLink);
        CHECK(::SendMessageA(hText, WM_NCHITTEST, 0, 0) == (bLink ? HTCLIENT : HTTRANSPARENT));
        MSG enter = {hText, WM_KEYDOWN, VK_RETURN, 0, 0, {}};
        const LRESULT keys = ::SendMessageA(hText, WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&enter));
        CHECK(((keys & DLGC_WANTMESSAGE) != 0) == bLink);
        ::SetCursor(nullptr);
        ::SendMessageA(hText, WM_SETCURSOR, reinterpret_cast<WPARAM>(hText), HTCLIENT);
        CHECK((::GetCursor() == ::LoadCursorA(nullptr, reinterpret_cast<const char*>(IDC_HAND))) == bLink);
        ::DestroyWindow(hText);
    }
}
