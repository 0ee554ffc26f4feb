#include "base/text.h"

namespace korvane::text {

std::string trim(std::string_view s) {
  std::size_t b = s.find_first_not_of(' ');
  if (b == std::string_view::npos) return {};
  std::size_t e = s.find_last_not_of(' ');
  return std::string(s.substr(b, e - b + 1));
}

std::string rtrim(std::string_view s) {
  std::size_t e = s.find_last_not_of(' ');
  return e == std::string_view::npos ? std::string() : std::string(s.substr(0, e + 1));
}

}  // namespace korvane::text
