#pragma once

// Which known word somebody may have meant.

#include "library/text/MultiByte.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

// The nearest of the words, without case, by so many letters at most that were added, lost,
// changed or swapped; empty when none is as near.
std::string nearest(std::string_view sWord, const std::vector<std::string>& words, std::size_t mostEdits);

// The known words that no entry of the kind has as its key.
template <class Known, class Entries, class Kind>
std::vector<std::string> unused(const Known& known, const Entries& entries, Kind kind)
{
    std::vector<std::string> names;
    for (const auto& one : known)
        if (std::none_of(entries.begin(), entries.end(), [&](const auto& entry) {
                return entry.m_kind == kind && Tesk::MultiByte::equalNoCase(entry.m_sKey, one.sName);
            }))
            names.push_back(one.sName);
    return names;
}

// "; did you mean "X"?", or nothing; the mark stands around the word.
std::string suggestion(std::string_view sWord, const std::vector<std::string>& words, std::string_view sMark = "");

// The pair of quotes, as Word puts them around what it takes for a quotation, at an end of
// the text; or nothing.
std::string typographicQuotesAround(std::string_view sText);

}  // namespace tabscheck
