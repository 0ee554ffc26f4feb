#include "engine/label_rules.h"

#include <set>

#include "base/codepage.h"
#include "engine/model_string.h"

namespace korvane::engine {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";

int digit(char c) {
  std::size_t i = kDigits.find(cp::toUpper(c));
  return i == std::string_view::npos ? -1 : static_cast<int>(i);
}

// Value of the label characters after the prefix; -1 when one is not a digit.
long suffixValue(std::string_view suffix) {
  long v = 0;
  for (char c : suffix) {
    int d = digit(c);
    if (d < 0) return -1;
    v = v * 36 + d;
  }
  return v;
}

std::string suffixText(long v, std::size_t width) {
  std::string s(width, '0');
  for (std::size_t i = width; i-- > 0; v /= 36) s[i] = kDigits[static_cast<std::size_t>(v % 36)];
  return s;
}

}  // namespace

std::int32_t countWithPrefix(const std::vector<std::string>& labels, std::string_view prefix) {
  std::int32_t n = 0;
  for (const std::string& l : labels)
    if (cp::startsWithIgnoreCase(l, prefix)) ++n;
  return n;
}

bool validLabelPrefix(std::string_view prefix) {
  if (prefix.empty() || prefix.size() >= kLabelWidth) return false;
  for (char c : prefix)
    if (digit(c) < 0) return false;
  return true;
}

std::optional<std::string> nextLabel(const std::vector<std::string>& labels,
                                     std::string_view prefix) {
  const std::string p = cp::upper(prefix);
  const std::size_t width = kLabelWidth - p.size();
  long limit = 1;
  for (std::size_t i = 0; i < width; ++i) limit *= 36;
  std::set<long> used;
  for (const std::string& l : labels) {
    if (l.size() != kLabelWidth || !cp::startsWithIgnoreCase(l, p)) continue;
    long v = suffixValue(std::string_view(l).substr(p.size()));
    if (v >= 0) used.insert(v);
  }
  if (used.empty()) return p + suffixText(0, width);
  if (*used.rbegin() + 1 < limit) return p + suffixText(*used.rbegin() + 1, width);
  for (long v = 0; v < limit; ++v)
    if (!used.count(v)) return p + suffixText(v, width);
  return std::nullopt;
}

}  // namespace korvane::engine
