#include "commands/section_trimming.h"

#include "base/codepage.h"
#include "base/conversions.h"
#include "commands/label_order.h"

namespace korvane::commands {

std::string BoundaryMasks::normalise(std::string_view mask) {
  std::string m = cp::upper(fourCharacters(mask));
  for (char& c : m)
    if (c == ' ') c = '?';
  return m;
}

bool BoundaryMasks::matchAll() const {
  for (const auto& m : masks)
    if (m != "????") return false;
  return true;
}

bool BoundaryMasks::matches(std::string_view label) const {
  for (const auto& m : masks)
    if (m != "????" && conv::Like(label, m)) return true;
  return false;
}

std::vector<std::string> trimRecords(const std::string& label,
                                     const std::vector<Crossing>& crossings,
                                     const BoundaryMasks& masks, double dist) {
  std::vector<std::string> records;
  const std::size_t n = crossings.size();
  if (n < 2) return records;
  const bool all = masks.matchAll();
  const float limit = static_cast<float>(dist);

  const Crossing* previous = &crossings[n - 1];
  bool first = true;  // the cuts so far reach back from the end of the string
  std::size_t lastKept = 0;
  for (std::size_t k = n - 1; k >= 1; --k) {
    const Crossing& current = crossings[k - 1];
    bool currentMatches = all || masks.matches(cp::upper(current.label));
    bool previousMatches = all || masks.matches(cp::upper(previous->label));
    if (dist != 0 && !(previous->position - current.position > limit)) previousMatches = false;
    const std::string s = "3=" + label;
    const std::string kText = std::to_string(k);
    if (!(currentMatches && previousMatches)) {
      lastKept = k;
      first = false;
    } else if (first) {
      records.push_back(k != 1 ? "005," + s + ",6=" + kText : "031," + s);
    } else {
      if (k != 1) {
        records.push_back("006," + s + ",6=" + kText + ",9=" + std::to_string(lastKept));
        lastKept = k + 1;
      } else {
        records.push_back("005," + s + ",9=2");
      }
      first = false;
    }
    previous = &current;
  }
  return records;
}

}  // namespace korvane::commands
