#include "engine/selection_masks.h"

#include "base/codepage.h"
#include "engine/model_string.h"

namespace korvane::engine {

void SelectionMasks::add(std::string_view mask, bool include) {
  masks_.push_back({cp::upper(padded(mask, kLabelWidth)), include});
}

bool SelectionMasks::matches(std::string_view mask, std::string_view label) {
  std::string m = padded(mask, kLabelWidth);
  std::string l = padded(label, kLabelWidth);
  for (std::size_t i = 0; i < kLabelWidth; ++i) {
    if (m[i] == ' ' || m[i] == '?') continue;
    if (cp::toUpper(m[i]) != cp::toUpper(l[i])) return false;
  }
  return true;
}

bool SelectionMasks::selects(std::string_view label) const {
  for (const Mask& m : masks_)
    if (matches(m.pattern, label)) return m.include;
  return true;
}

}  // namespace korvane::engine
