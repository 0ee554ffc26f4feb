// String labels as numbers: a label of up to four characters is a number
// written in base 36 over "0123456789abcdefghijklmnopqrstuvwxyz", the last
// character least significant. Labels are handled in lower case.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane::labels {

// Digit value of each character times its power of 36. A character outside
// the digits counts as -1; it is not refused.
std::int64_t value(std::string_view label);

// Exactly four digits with leading "0"s. A digit outside 0 to 35 (the first
// digit of a value of 36^4 or more, or a digit of a negative value) is left
// out, giving a shorter text.
std::string text(std::int64_t value);

// The label after `label`, as long as `label`: "a9" gives "aa", "0z" gives
// "10"; past the last label of its length it wraps ("zz" gives "00", "zzzz"
// gives "0000").
std::string next(std::string_view label);

}  // namespace korvane::labels
