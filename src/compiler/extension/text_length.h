// The longest text a value, or a line after substitution, may hold: a few
// lines that double a text would otherwise take all memory.
#pragma once

#include <cstddef>

namespace korvane {

constexpr std::size_t kMaxTextLength = 16 * 65535;

// A run-time failure when a text would have more than kMaxTextLength characters.
void checkTextLength(std::size_t length);

}  // namespace korvane
