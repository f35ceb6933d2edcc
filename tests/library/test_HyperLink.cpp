#include "library/controls/HyperLink.h"

#include <doctest/doctest.h>

TEST_CASE("a link opens web and mail addresses alone")
{
    for (const char* sAddress : {"http://intranet/cad", "HTTPS://office.example/a?b=c&d", "mailto:cad@office.example"})
        CHECK(CHyperLink::getTarget(sAddress) == sAddress);
    CHECK(CHyperLink::getTarget(" www.office.example\t") == "http://www.office.example");
    CHECK(CHyperLink::getTarget("cad@office.example") == "mailto:cad@office.example");
    CHECK(CHyperLink::getTarget("MAILTO:cad@office.example?subject=Help") == "MAILTO:cad@office.example?subject=Help");

    for (const char* sOther :
         {"", "http://", "calc.exe", "C:\\tools\\x.exe", "\\\\server\\x@y", "file://c:/x", "javascript:a@b", "x.exe@",
          "@x", "mailto:x", "a@b\\c.exe", "http://a b", "a@b\" /c", "call extension 12", "mailto:javascript:a@b"})
        CHECK(CHyperLink::getTarget(sOther) == "");
}
