// The relabelling of labelmove: the four digits of `order` say, for each
// character of a new label, which character of the old label it takes.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::commands {

struct LabelOrder {
  std::array<int, 4> from{};  // 0-based positions in the old label
};

// The order from the first four characters of `value`, each a digit 1 to 4;
// nullopt when they are not.
std::optional<LabelOrder> parseLabelOrder(std::string_view value);

// A label as a fixed four-character text: padded with blanks or cut.
std::string fourCharacters(std::string_view label);

// The new label: character k is the old label's character order.from[k].
std::string permuteLabel(std::string_view label, const LabelOrder& order);

// A "080," string header with its label (columns 5 to 8) permuted; its
// second label (columns 10 to 13) follows only when the first begins with G
// or M and both end in the same three characters, as design strings and
// their partner strings do. Other lines come back unchanged.
std::string relabelHeader(std::string_view line, const LabelOrder& order);

}  // namespace korvane::commands
