// "Did you mean": the known word closest to a word that is not known.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane::text {

// Edits (insert, delete, replace, swap of two neighbours) between a and b,
// ignoring ASCII letter case.
std::size_t editDistance(std::string_view a, std::string_view b);

// The candidate closest to `word` when it is close enough to be a typing
// mistake (one edit for words up to four letters, two for longer ones) and
// not the word itself; empty otherwise.
std::string closestWord(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace korvane::text
