#pragma once

// The date pass of a template's expansion: tokens that carry their own format, such as
// %CURRENT_DATE::|d.|m.|Y%.

#include <stdlib.h>

#include <string>
#include <string_view>

namespace Tesk {

// Replaces every sStart + keyword + "::" + format + sEnd by the formatted time, the last
// one in the text first; a format has one character or more and ends at the first sEnd.
// What comes of it is looked at again. The first character of a delimiter is taken
// literally; what else a delimiter holds reads as a regular expression.
std::string expandDateKeyword(std::string_view sKeyword, __time64_t time, bool bUTC, std::string sText,
                              std::string_view sStart, std::string_view sEnd);

// The time by a strftime format in which "|" stands for "%", as UTC or local time. Empty
// when the time cannot be broken down, for a result of more than 127 characters, and for a
// directive that the C runtime does not know.
std::string formatTime(__time64_t time, std::string_view sFormat, bool bUTC);

}  // namespace Tesk
