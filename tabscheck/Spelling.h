#pragma once

// Which known word somebody may have meant.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

// The nearest of the words, without case, by so many letters at most that were added, lost,
// changed or swapped; empty when none is as near.
std::string nearest(std::string_view sWord, const std::vector<std::string>& words, std::size_t mostEdits);

template <class Known>
std::vector<std::string> namesOf(const Known& known)
{
    std::vector<std::string> names;
    for (const auto& one : known)
        names.emplace_back(one.sName);
    return names;
}

// "; did you mean "X"?", or nothing; the mark stands around the word.
std::string suggestion(std::string_view sWord, const std::vector<std::string>& words, std::string_view sMark = "");

}  // namespace tabscheck
