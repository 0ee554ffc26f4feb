// Small text helpers with the classic BASIC meanings the input language uses.
#pragma once

#include <string>
#include <string_view>

namespace korvane::text {

// Trim removes blanks (the space character only), as the classic Trim does.
std::string trim(std::string_view s);
std::string rtrim(std::string_view s);
inline bool startsWith(std::string_view s, std::string_view p) {
  return s.size() >= p.size() && s.compare(0, p.size(), p) == 0;
}
inline bool endsWith(std::string_view s, std::string_view p) {
  return s.size() >= p.size() && s.compare(s.size() - p.size(), p.size(), p) == 0;
}
// The leading `n` characters, fewer when the text is shorter.
inline std::string left(std::string_view s, std::size_t n) { return std::string(s.substr(0, n)); }

}  // namespace korvane::text
