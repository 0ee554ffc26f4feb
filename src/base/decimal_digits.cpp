// Decimal digit strings of doubles, and doubles from decimal digit strings.
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "base/conv_detail.h"

namespace korvane::conv::detail {

void fail(ConvErrc code, const std::string& what) { throw ConversionError(code, what); }

namespace {

// Adds one unit in the last place of a digit string; returns true when it carried out of the
// first digit (all nines), in which case the string has become "1" followed by zeros.
bool incrementDigits(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] != '9') {
      ++digits[i];
      return false;
    }
    digits[i] = '0';
  }
  digits.insert(digits.begin(), '1');
  digits.pop_back();
  return true;
}

void stripTrailingZeros(std::string& digits) {
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
}

}  // namespace

Decimal roundedDigits(double value, int significant) {
  Decimal d;
  if (value == 0 || !std::isfinite(value)) return d;
  d.negative = std::signbit(value);
  // 766 digits after the point print every double exactly (at most 767 significant digits),
  // so the rounding below sees the true binary value, ties included.
  char buf[800];
  auto res =
      std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific, 766);
  std::string_view text(buf, static_cast<std::size_t>(res.ptr - buf));
  std::size_t e = text.find('e');
  int exponent = std::atoi(std::string(text.substr(e + 1)).c_str());
  std::string digits(1, text[0]);
  digits.append(text.substr(2, e - 2));

  if (significant < 1) significant = 1;
  if (digits.size() > static_cast<std::size_t>(significant)) {
    bool up = digits[static_cast<std::size_t>(significant)] >= '5';
    digits.resize(static_cast<std::size_t>(significant));
    if (up && incrementDigits(digits)) ++exponent;
  }
  stripTrailingZeros(digits);
  d.digits = std::move(digits);
  d.pointPos = exponent + 1;
  return d;
}

void roundToFraction(Decimal& d, int fractionDigits) {
  if (d.isZero()) return;
  long long keep = static_cast<long long>(d.pointPos) + fractionDigits;
  if (keep >= static_cast<long long>(d.digits.size())) return;
  if (keep < 0) {  // the first dropped digit is a leading zero
    d.digits.clear();
    return;
  }
  bool up = d.digits[static_cast<std::size_t>(keep)] >= '5';
  d.digits.resize(static_cast<std::size_t>(keep));
  if (up) {
    if (d.digits.empty()) {
      d.digits.assign(1, '1');
      ++d.pointPos;
    } else if (incrementDigits(d.digits)) {
      ++d.pointPos;
    }
  }
  stripTrailingZeros(d.digits);
}

bool digitsToDouble(std::string_view digits, std::int64_t exp10, bool negative, double& out) {
  std::size_t first = digits.find_first_not_of('0');
  if (first == std::string_view::npos) {
    out = negative ? -0.0 : 0.0;
    return true;
  }
  std::string mantissa(digits.substr(first));
  // More digits than any double can distinguish: keep 800 and a sticky 1 for the rest.
  constexpr std::size_t kMaxDigits = 800;
  if (mantissa.size() > kMaxDigits) {
    bool nonZeroTail = mantissa.find_first_not_of('0', kMaxDigits) != std::string::npos;
    exp10 += static_cast<std::int64_t>(mantissa.size() - kMaxDigits);
    mantissa.resize(kMaxDigits);
    if (nonZeroTail) {
      mantissa.push_back('1');
      --exp10;
    }
  }
  std::int64_t sciExp = exp10 + static_cast<std::int64_t>(mantissa.size()) - 1;
  if (sciExp > 310) return false;
  if (sciExp < -400) {
    out = negative ? -0.0 : 0.0;
    return true;
  }
  mantissa += 'e';
  mantissa += std::to_string(exp10);
  double v = 0;
  auto res = std::from_chars(mantissa.data(), mantissa.data() + mantissa.size(), v);
  if (res.ec == std::errc::result_out_of_range) {
    if (sciExp > 0) return false;
    v = 0;
  }
  if (std::isinf(v)) return false;
  out = negative ? -v : v;
  return true;
}

std::optional<std::int64_t> roundedHalfEven(double value, std::int64_t lo, std::int64_t hi) {
  if (!std::isfinite(value)) return std::nullopt;
  double fl = std::floor(value);
  double diff = value - fl;
  double r = fl;
  if (diff > 0.5 || (diff == 0.5 && std::fmod(fl, 2.0) != 0)) r = fl + 1;
  if (r < static_cast<double>(lo) || r > static_cast<double>(hi)) return std::nullopt;
  return static_cast<std::int64_t>(r);
}

std::int64_t roundHalfEven(double value, std::int64_t lo, std::int64_t hi) {
  const std::optional<std::int64_t> r = roundedHalfEven(value, lo, hi);
  if (!r) fail(ConvErrc::Overflow, "Overflow");
  return *r;
}

}  // namespace korvane::conv::detail
