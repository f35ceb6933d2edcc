#include "mfc/afx.h"
#include "tests/support/ThreadCodePage.h"

#include <doctest/doctest.h>

#include <cerrno>
#include <cstring>

TEST_CASE("CString formats, cuts and joins, also from and into itself")
{
    CString text(nullptr);
    CHECK(text.IsEmpty());
    text = "plan";
    text.Format("%s.%d.%s", text.GetString(), 7, text.GetString());
    CHECK(text == "plan.7.plan");
    CHECK(text.Left(4) + text.Mid(4, 2) + 'x' == "plan.7x");
    CHECK(text.Left(400) == text);
    CHECK(text.Mid(400).IsEmpty());
    CHECK(text.Mid(5, -1).IsEmpty());

    CString longText;
    longText.Format("%*d", 5000, 1);
    CHECK(longText.GetLength() == 5000);
    std::strcpy(text.GetBuffer(10), "abc");
    text.ReleaseBuffer();
    CHECK(text.GetLength() == 3);
    CHECK(CString("Ab").CompareNoCase("aB") == 0);
    CHECK(CString("a") < CString("\xE4"));  // bytes compare unsigned
}

TEST_CASE("CString takes no trail byte for a character of its own (code page 932)")
{
    const CThreadLocale locale(CThreadLocale::japanese);
    // 0x83 0x5C ends in a backslash, 0x83 0x41 in 'A', 0x81 0x7C in a bar.
    CString path("C:\\\x83\x5C\\\x83\x5C.dwg");
    CHECK(path.Find('\\') == 2);
    CHECK(path.ReverseFind('\\') == 5);
    CHECK(path.Replace('\\', '/') == 2);
    CHECK(path == "C:/\x83\x5C/\x83\x5C.dwg");
    CHECK(path.Replace("\x83\x5C", "so") == 2);
    CHECK(path == "C:/so/so.dwg");

    CHECK(CString("a\x83\x41").Find('A') == -1);
    CHECK(CString("\x83\x41").CompareNoCase("\x83\x61") != 0);
    CHECK(CString("x\x83\x5C\\").TrimRight("\\") == "x\x83\x5C");
    CHECK(CString("x|\x81\x7C").Replace("|", "") == 1);
    CHECK(CString("cut\x83").Find('\x83') == 3);  // half a character at the end stands for itself
}

TEST_CASE("CString compares without case by the thread's code page")
{
    const CThreadLocale locale(CThreadLocale::english);
    CHECK(CString("\xC4").CompareNoCase("\xE4") == 0);
    CHECK(CString("a\x83\\").ReverseFind('\\') == 2);
    CHECK(CString(" \t\r\n x \n").Trim() == "x");
}

TEST_CASE("a file exception names file and reason within the caller's buffer")
{
    const CThreadLocale locale(CThreadLocale::japanese);
    char message[300];
    try {
        CFileException::ThrowErrno(ENOENT, "C:\\\x83\x5C.txt");
    } catch (CException* exception) {
        CHECK(exception->GetErrorMessage(message, sizeof message));
        CHECK(CString(message) == CString("C:\\\x83\x5C.txt: ") + std::strerror(ENOENT));
        CHECK_FALSE(exception->GetErrorMessage(message, 0));
        exception->Delete();
    }
    CException plain;
    CHECK_FALSE(plain.GetErrorMessage(message, sizeof message));
    CHECK(message[0] == '\0');
}
