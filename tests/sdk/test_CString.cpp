#include "mfc/afx.h"
#include "tests/support/ThreadCodePage.h"

#include <doctest/doctest.h>

#include <cerrno>
#include <cstring>

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
