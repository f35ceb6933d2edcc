#pragma once

// The program's two outputs. Texts come in the thread's ANSI code page.

#include <string>
#include <string_view>

namespace tabscheck {

class Console {
public:
    Console();
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    // In the console's code page; control characters but line ends become blanks.
    void print(std::string_view sText);
    // As they are.
    void printBytes(std::string_view sBytes);
    // To the error output, in the console's code page, with a line end.
    void complain(std::string_view sText);
    // Ends the program when the output cannot be written: nobody reads it any more.
    void flush();

private:
    // False when the bytes cannot be written.
    static bool write(void* handle, std::string_view sBytes);
    std::string toConsole(std::string_view sText) const;

    void* m_output;
    void* m_errors;
    unsigned m_codePage;
    std::string m_pending;
};

std::string encode(const std::wstring& sWide, unsigned uCodePage);

// What a terminal would obey; line ends are none.
bool isControl(wchar_t c);

}  // namespace tabscheck
