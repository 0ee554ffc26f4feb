#include "functions/label_arithmetic.h"

#include "base/codepage.h"

namespace korvane::labels {
namespace {

constexpr std::string_view kDigits = "0123456789abcdefghijklmnopqrstuvwxyz";
constexpr std::int64_t kWrap = 36LL * 36 * 36 * 36;

}  // namespace

std::int64_t value(std::string_view label) {
  // Unsigned, so that a text far longer than a label wraps instead of overflowing.
  std::uint64_t v = 0;
  for (char c : label) {
    const std::size_t d = kDigits.find(cp::toLower(c));
    v = v * 36 + (d == std::string_view::npos ? ~std::uint64_t{0} : d);
  }
  return static_cast<std::int64_t>(v);
}

std::string text(std::int64_t value) {
  std::string out;
  for (std::int64_t power = 36 * 36 * 36; power >= 1; power /= 36) {
    const std::int64_t d = value / power;
    if (d >= 0 && d < 36) out += kDigits[static_cast<std::size_t>(d)];
    value -= d * power;
  }
  return out;
}

std::string next(std::string_view label) {
  const std::string t = text((value(label) + 1) % kWrap);
  return t.size() > label.size() ? t.substr(t.size() - label.size()) : t;
}

}  // namespace korvane::labels
