#pragma once

// Conversions between narrow and wide text. Narrow is the current thread's ANSI
// code page; what a code page cannot hold becomes its default character.

#include <windows.h>

#include <string>
#include <string_view>

namespace Tesk {

// Windows is one of the NT family.
bool isNtFamily();

// The number of the current thread's ANSI code page: the system's where the thread's
// locale has none, or where Windows is not one of the NT family.
UINT getThreadCodePage();

// Zero characters are kept. A text too long for one call (2 GB) gives nothing.
std::wstring toWide(std::string_view sText);
std::string toNarrow(std::wstring_view sText);

}  // namespace Tesk
