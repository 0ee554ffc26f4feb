// Small text helpers with the classic BASIC meanings the input language uses.
#pragma once

#include <cstddef>
#include <cstdint>
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
// FNV-1a: the short names and keywords the compile looks up, once or more a
// line, hash in a few steps.
inline std::uint64_t hash(std::string_view s) {
  std::uint64_t h = 14695981039346656037ULL;
  for (unsigned char c : s) h = (h ^ c) * 1099511628211ULL;
  return h;
}
// A hash for unordered containers keyed by text and searched by string_view.
struct Hash {
  using is_transparent = void;
  std::size_t operator()(std::string_view s) const { return static_cast<std::size_t>(hash(s)); }
};
// The leading `n` characters, fewer when the text is shorter.
inline std::string left(std::string_view s, std::size_t n) { return std::string(s.substr(0, n)); }

}  // namespace korvane::text
