#include "tests/library/CommandLine.h"

#include <cstdarg>
#include <cstdio>

std::vector<std::string>& commandLinePieces()
{
    static std::vector<std::string> pieces;
    return pieces;
}

// The linker sends the library's calls of acutPrintf here.
extern "C" int __wrap__Z10acutPrintfPKcz(const char* sFormat, ...)
{
    char sText[4096];
    va_list arguments;
    va_start(arguments, sFormat);
    std::vsnprintf(sText, sizeof sText, sFormat, arguments);
    va_end(arguments);
    commandLinePieces().push_back(sText);
    return 0;
}
