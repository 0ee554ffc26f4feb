// String selection by 019 masks: masks are tried in the order given, the first
// one that matches a label decides (include or exclude), and a label that no
// mask matches is included. In a mask, blank and "?" match any character; a
// mask or label shorter than four characters is padded with blanks.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvane::engine {

class SelectionMasks {
 public:
  void add(std::string_view mask, bool include);
  void clear() { masks_.clear(); }
  bool empty() const { return masks_.empty(); }
  int size() const { return static_cast<int>(masks_.size()); }
  bool selects(std::string_view label) const;

  static bool matches(std::string_view mask, std::string_view label);

 private:
  struct Mask {
    std::string pattern;  // four characters, upper case
    bool include;
  };
  std::vector<Mask> masks_;
};

}  // namespace korvane::engine
