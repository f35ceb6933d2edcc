#pragma once

// Which known word somebody may have meant.

#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

// The nearest of the words, without case, by letters added, lost, changed or swapped;
// empty when none is near enough to be meant.
std::string nearest(std::string_view sWord, const std::vector<std::string>& words);

// "; did you mean "X"?", or nothing.
std::string suggestion(std::string_view sWord, const std::vector<std::string>& words);

}  // namespace tabscheck
