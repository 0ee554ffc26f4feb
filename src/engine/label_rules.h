// Label questions of the data-access object: how many labels of a model begin
// with a prefix, and the next label for a prefix. Labels are compared in upper
// case; their characters count in the order 0-9, A-Z (base 36).
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::engine {

std::int32_t countWithPrefix(const std::vector<std::string>& labels, std::string_view prefix);

// A prefix of 1 to 3 label characters (0-9, A-Z in either case).
bool validLabelPrefix(std::string_view prefix);

// The next label for a prefix: the four-character label after the highest
// label of the model that consists of the prefix and label characters; the
// prefix padded with "0" when the model has none; when the highest is the
// last possible one, the lowest free label of the prefix. Nullopt when every
// label of the prefix is taken.
std::optional<std::string> nextLabel(const std::vector<std::string>& labels,
                                     std::string_view prefix);

}  // namespace korvane::engine
