// The fuzz inputs that carry a few values before their content, one a line.
#pragma once

#include <string_view>

namespace korvane::fuzz {

// The first line of `text` (without its LF); `text` keeps what follows it.
inline std::string_view nextLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  const std::string_view line = text.substr(0, end);
  text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  return line;
}

}  // namespace korvane::fuzz
