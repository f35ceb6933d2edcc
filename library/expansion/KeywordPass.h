#pragma once

// The keyword pass of a template's expansion.

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace Tesk {

// Keyword (without delimiters) to value, ordered by bytes.
using KeywordMap = std::map<std::string, std::string, std::less<>>;

// Walks the table in ascending order and replaces, for each keyword, every occurrence of
// sStart + keyword + sEnd, the first one first and those that a value completes as well. So
// a value may bring in tokens of later keywords, while those of earlier ones stay.
//
// The tokens of a keyword all stay, and the trace says so, when its value holds its own
// token, or when the text would grow by more than a megabyte or take more than ten million
// replacements.
std::string expandKeywords(std::string sText, const KeywordMap& mapKeywords, std::string_view sStart,
                           std::string_view sEnd);

}  // namespace Tesk
