#include "library/controls/HyperLink.h"

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
