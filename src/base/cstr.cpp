// CStr: a Double in the general form.
#include <charconv>
#include <cmath>

#include "base/conv_detail.h"

namespace korvane::conv {

namespace detail {

std::string generalForm(const Decimal& d) {
  if (d.isZero()) return "0";
  std::string out = d.negative ? "-" : "";
  const int n = static_cast<int>(d.digits.size());
  const int exponent = d.pointPos - 1;
  if (exponent < -4 || exponent >= 15) {
    out += d.digits[0];
    if (n > 1) {
      out += '.';
      out.append(d.digits, 1);
    }
    out += exponent < 0 ? "E-" : "E+";
    std::string e = std::to_string(exponent < 0 ? -exponent : exponent);
    if (e.size() < 2) out += '0';
    out += e;
  } else if (d.pointPos <= 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-d.pointPos), '0');
    out += d.digits;
  } else if (d.pointPos >= n) {
    out += d.digits;
    out.append(static_cast<std::size_t>(d.pointPos - n), '0');
  } else {
    out.append(d.digits, 0, static_cast<std::size_t>(d.pointPos));
    out += '.';
    out.append(d.digits, static_cast<std::size_t>(d.pointPos));
  }
  return out;
}

}  // namespace detail

// 15 significant digits, taken from the exact binary value and rounded half away from zero,
// so exact ties at the 16th digit go up in magnitude as the classic runtime does (C's "%.15G"
// would round them to even). Negative zero prints as "0". Infinities and NaN, which no
// conversion of this module produces, print in the classic Windows runtime spelling "1.#INF",
// "-1.#INF" and "1.#QNAN", so that they stand out in the output rather than read as a number.
std::string CStr(double value) {
  // A whole number of at most 15 digits is its own general form.
  if (std::fabs(value) < 1e15 && value != 0 &&
      value == static_cast<double>(static_cast<long long>(value))) {
    // Digits from the last, into the end of the buffer: a count or a
    // chainage is written for every line of a repeated part.
    char buf[24];
    char* p = buf + sizeof buf;
    const long long whole = static_cast<long long>(value);
    unsigned long long rest = whole < 0 ? 0ULL - static_cast<unsigned long long>(whole)
                                        : static_cast<unsigned long long>(whole);
    do {
      *--p = static_cast<char>('0' + rest % 10);
      rest /= 10;
    } while (rest != 0);
    if (whole < 0) *--p = '-';
    return std::string(p, buf + sizeof buf);
  }
  if (std::isnan(value)) return "1.#QNAN";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  return detail::generalForm(detail::roundedDigits(value, 15));
}

}  // namespace korvane::conv
