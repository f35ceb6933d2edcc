#include "library/files/DefaultSettings.h"

#include "library/diagnostics/Prerelease.h"
#include "library/text/CodePage.h"
#include "library/text/StringView.h"
#include "tests/library/Raised.h"
#include "tests/library/Utf16.h"
#include "tests/support/TestFolder.h"
#include "tests/support/ThreadCodePage.h"

#include <doctest/doctest.h>

using namespace std::string_literals;
using Lines = std::vector<std::string>;
using Tesk::CDefaultSettings;

namespace {

Lines toLines(const std::vector<CString>& vLines)
{
    Lines lines;
    for (const CString& sLine : vLines)
        lines.push_back(Tesk::toString(sLine));
    return lines;
}

Lines contentsOf(const CTestFolder& folder, const std::string& sBytes)
{
    return toLines(CDefaultSettings({folder.write("s.ini", sBytes).c_str()}, false).getContents());
}

}  // namespace

TEST_CASE("what the lines of a settings file mean")
{
    const CTestFolder folder;
    const LCID japanese = CThreadLocale::japanese, hindi = MAKELCID(MAKELANGID(LANG_HINDI, SUBLANG_DEFAULT), 0);
    const struct {
        std::string m_sBytes;
        Lines m_contents;
        LCID m_locale = CThreadLocale::english;
    } cases[] = {
        {"; note\n\n  \t \r\n ;x=1\n", {}},
        {"KEY = a=b ; c", {"KEY=a=b ; c"}},
        {"a=1\n[S]\na=2\n[]\nb=3", {"a=1", "b=3", "[S]", "a=2"}},
        {"[A]\na=1\n[B] ; note\nb=2", {"[A]", "a=1", "b=2"}},
        {"  [[Name]]  \nk=\"  q \"\n[ Name ]\nk=1", {"[ Name ]", "k=1", "[Name]", "k=\"  q \""}},
        {"[General]\nWidth=1\n[GENERAL]\nWIDTH=2", {"[General]", "Width=2"}},
        {"[Empty]\n[[\n[x", {}},
        {"[a]b]\nk=v", {"[a]b]", "k=v"}},
        {"=v\n=w\n\v\fk\f=\v", {"=w", "k="}},
        {"# = x\n// = y", {"#= x"s.replace(1, 2, "="), "//=y"}},
        {"b=1\nA=2\n_=3\nB=4", {"_=3", "A=2", "b=4"}},
        {"a\r=\rb\r\n", {"a=b"}},
        {"k=v\x1Ano equals sign", {"k=v"}},
        {"k\0=v\0w"s, {"k\0=v\0w"s}},
        {utf16(L"[\xC9t\xE9]\r\nk=\x20AC\x3042"), {"[\xC9t\xE9]", "k=\x80?"}},
        {utf16(L"k=v") + "x", {"k=v"}},
        // Letters are folded in the thread's code page, others are not.
        {"\xC4=1\n\xE4=2\n\xD7=3\n\xF7=4\n\x8A=5\n\x9A=6", {"\x8A=6", "\xD7=3", "\xC4=2", "\xF7=4"}},
        {"\xC4=1\n\xE4=2", {"\xC4=2"}, hindi},  // a language without an ANSI code page
        // The second byte of a character may look like syntax.
        // 0x835B, 0x835C and 0x835D end in "[", "\" and "]"
        {"[\x83\x5D]\nk=\x83\x5C", {"[\x83\x5D]", "k=\x83\x5C"}, japanese},
        {"[a]\nx=1\n[\x83\x5D\ny=2", {"[a]", "x=1", "y=2"}, japanese},
        {"[\x83\x5D]]\nk=v", {"[\x83\x5D]", "k=v"}, japanese},
        {"\x81\x40k\x81\x40=\x81\x40", {"\x81\x40k\x81\x40=\x81\x40"}, japanese},
        // full-width A and a are one letter; the bytes 0x61 and 0x41 in second place are not
        {"\x82\x60=1\n\x82\x81=2", {"\x82\x60=2"}, japanese},
        {"\x83\x41=1\n\x83\x61=2", {"\x83\x41=1", "\x83\x61=2"}, japanese},
        {"\x84\x40=1\n\x84\x70=2", {"\x84\x40=2"}, japanese},
    };
    for (const auto& each : cases) {
        CAPTURE(each.m_sBytes);
        const CThreadLocale locale(each.m_locale);
        CHECK(Tesk::getThreadCodePage() != 0);
        CHECK(contentsOf(folder, each.m_sBytes) == each.m_contents);
    }
}

TEST_CASE("later files override, and the section runs on into the next file")
{
    const CTestFolder folder;
    const CString sFirst = folder.write("a.ini", "[S]\nk=1\nonly=a").c_str();
    const CString sSecond = folder.write("b.ini", "K=2\n[T]\nk=3").c_str();
    const CDefaultSettings settings({sFirst, sSecond}, true);
    CHECK(toLines(settings.getContents()) == Lines{"[S]", "k=2", "only=a", "[T]", "k=3"});
    CHECK(toLines(settings.getKeyLines()) == Lines{"k=1", "only=a", "K=2", "k=3"});
}

TEST_CASE("lookups")
{
    const CTestFolder folder;
    CDefaultSettings settings({folder.write("a.ini", "free=1\n[Tabs]\nWidth=2").c_str()}, false);
    CHECK(settings.isDefined("TABS", "width"));
    CHECK(settings.getValue("tabs", "WIDTH") == "2");
    CHECK(settings.getValue("", "FREE") == "1");
    CHECK_FALSE(settings.isDefined("Tabs", "free"));
    CHECK(messageOf([&] { settings.getValue("None", "Width"); }) == "Error : Invalid section (None).");
    CHECK(messageOf([&] { settings.getValue("Tabs", "Colour"); }) == "Error : Invalid key (Colour).");
    settings.setValue("tabs", "WIDTH", "3");
    settings.setValue("new", "k", "v");
    CHECK(toLines(settings.getContents()) == Lines{"free=1", "[new]", "k=v", "[Tabs]", "Width=3"});
}

TEST_CASE("a key line without = names file and line, blank lines and comments counted")
{
    const CTestFolder folder;
    const CString sFile = folder.write("a.ini", "; c\n\n[S]\nk=v\nTabs\nx=y").c_str();
    const CString sNext = folder.write("b.ini", "z=1").c_str();
    CHECK(messageOf([&] {
              CDefaultSettings({sFile, sNext}, false);
          }) == ("Error (<<" + sFile + ">> @ line 5) : Tokenising error.").GetString());

    CDefaultSettings settings({}, false);
    messageOf([&] { settings.readAFile(sFile); });
    CHECK(toLines(settings.getContents()) == Lines{"[S]", "k=v"});
    const std::string sNone = folder.path("none.ini");
    CHECK(fileErrorOf([&] { settings.readAFile(sNone.c_str()); }) == "2 " + sNone);
    settings.readAFile(sNext);  // a failed read leaves nothing behind
    CHECK(settings.isDefined("S", "z"));
}
