#pragma once

// The keyword pass of a template's expansion: tokens are replaced in the order of their
// keywords, at a cost that grows with the text and the tokens in it, not with the table.

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace Tesk {

// Keyword (without delimiters) to value, ordered by bytes.
using KeywordMap = std::map<std::string, std::string, std::less<>>;

// The result is that of walking the table in ascending order and replacing, for each
// keyword, every occurrence of sStart + keyword + sEnd, searching again from the beginning
// of the text after each replacement. So a value may bring in tokens of later keywords,
// while those of earlier ones stay.
//
// Two things differ, since that walk would not end or would fill the memory: a value that
// brings its own token back, in itself or with the text around it, for ever, is put in once
// a place and left; and a replacement that would let the text grow by more than 16 MB is
// not made. The trace says so.
//
// `iLongestKeyword` is at least the length of the table's longest keyword.
std::string expandKeywords(std::string sText, const KeywordMap& mapKeywords, std::size_t iLongestKeyword,
                           std::string_view sStart, std::string_view sEnd);

}  // namespace Tesk
