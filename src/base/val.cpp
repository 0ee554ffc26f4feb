// Val: the leading number of a text, as classic BASIC reads operands.
#include <cstdint>
#include <optional>
#include <string>

#include "base/conv_detail.h"

namespace korvane::conv {
namespace {

using detail::isBlank;
using detail::isDigit;

int digitValue(char c, int radix) {
  int v = -1;
  if (isDigit(c))
    v = c - '0';
  else if (c >= 'a' && c <= 'f')
    v = c - 'a' + 10;
  else if (c >= 'A' && c <= 'F')
    v = c - 'A' + 10;
  return v < radix ? v : -1;
}

// The error Val fails with; nothing when it gives a value.
using Failure = std::optional<ConvErrc>;

// A "%" type suffix makes the number an Integer, "&" a Long; both round and
// range-check: false when the value is out of that range.
bool applyIntegerSuffix(double& value, char suffix) {
  std::optional<std::int64_t> rounded;
  if (suffix == '%')
    rounded = detail::roundedHalfEven(value, INT16_MIN, INT16_MAX);
  else if (suffix == '&')
    rounded = detail::roundedHalfEven(value, INT32_MIN, INT32_MAX);
  else
    return true;
  if (rounded) value = static_cast<double>(*rounded);
  return rounded.has_value();
}

// "&H..." / "&O..." after the "&". The literal is typed by its size as the BASIC source
// literal would be: hex with 3-4 significant digits is an Integer (&HFFFF = -1), with 5-8 a Long
// (&HFFFFFFFF = -1), longer ones a 64-bit value; octal likewise by value. A trailing "%" or "&"
// forces the Integer or Long type. More than 64 bits is an overflow.
Failure radixValue(std::string_view text, std::size_t i, double& out) {
  out = 0;
  if (i >= text.size()) return std::nullopt;
  int radix = 0;
  if (text[i] == 'H' || text[i] == 'h')
    radix = 16;
  else if (text[i] == 'O' || text[i] == 'o')
    radix = 8;
  else
    return std::nullopt;
  ++i;
  std::uint64_t value = 0;
  int digits = 0;
  for (; i < text.size(); ++i) {
    char c = text[i];
    if (isBlank(c)) continue;
    int dv = digitValue(c, radix);
    if (dv < 0) break;
    if (digits == 0 && dv == 0) continue;  // leading zeros do not count towards the type
    if (value > (UINT64_MAX - static_cast<std::uint64_t>(dv)) / static_cast<std::uint64_t>(radix))
      return ConvErrc::Overflow;
    value = value * static_cast<std::uint64_t>(radix) + static_cast<std::uint64_t>(dv);
    ++digits;
  }
  char suffix = i < text.size() ? text[i] : '\0';
  bool asLong, asInteger;
  if (radix == 16) {
    asLong = digits <= 8 && (digits > 4 || suffix == '&');
    asInteger = !asLong && digits <= 4 && (digits > 2 || suffix == '%');
  } else {
    asLong = value <= 0xFFFFFFFFu && (value > 0xFFFFu || suffix == '&');
    asInteger = !asLong && value <= 0xFFFFu && (value > 0xFFu || suffix == '%');
  }
  std::int64_t result;
  if (asLong)
    result = static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
  else if (asInteger)
    result = static_cast<std::int16_t>(static_cast<std::uint16_t>(value));
  else
    result = static_cast<std::int64_t>(value);
  out = static_cast<double>(result);
  if (!applyIntegerSuffix(out, suffix)) return ConvErrc::Overflow;
  return std::nullopt;
}

// Most values of a compile are plain whole numbers: counts, indices, levels
// written without a point. Read them without the general scan.
bool plainInteger(std::string_view text, double& value) {
  const bool negative = !text.empty() && text[0] == '-';
  const std::string_view digits = text.substr(negative ? 1 : 0);
  if (digits.empty() || digits.size() > 15) return false;
  std::int64_t v = 0;
  for (char c : digits) {
    if (c < '0' || c > '9') return false;
    v = v * 10 + (c - '0');
  }
  if (negative && v == 0) return false;  // "-0" keeps its sign through the general scan
  value = negative ? -static_cast<double>(v) : static_cast<double>(v);
  return true;
}

// Blanks (space, TAB, LF, CR) are skipped anywhere; one leading sign; digits with at most one
// "."; an exponent after "E", "e", "D" or "d" with at most one sign before its digits (no digits
// means 0). Scanning stops at the first other character. A number ended by a "%" or "&" type
// suffix must not have digits after the point (error 13) and is rounded to that type. The
// Single ("!") and Currency ("@") suffixes end the number and leave the Double as it is.
Failure read(std::string_view text, double& value) {
  value = 0;
  std::size_t i = 0;
  const std::size_t n = text.size();
  while (i < n && isBlank(text[i])) ++i;
  if (i >= n) return std::nullopt;
  if (text[i] == '&') return radixValue(text, i + 1, value);

  bool negative = false;
  if (text[i] == '-' || text[i] == '+') negative = text[i++] == '-';

  std::string digits;
  bool afterPoint = false, exponentFollows = false;
  std::int64_t fractionDigits = 0;
  for (; i < n; ++i) {
    char c = text[i];
    if (isBlank(c)) continue;
    if (isDigit(c)) {
      if (c == '0' && digits.empty() && !afterPoint) continue;
      digits.push_back(c);
      if (afterPoint) ++fractionDigits;
    } else if (c == '.' && !afterPoint) {
      afterPoint = true;
    } else {
      exponentFollows = c == 'e' || c == 'E' || c == 'd' || c == 'D';
      if (exponentFollows) ++i;
      break;
    }
  }

  std::int64_t exponent = 0;
  if (exponentFollows) {
    bool expNegative = false, signSeen = false, digitSeen = false;
    for (; i < n; ++i) {
      char c = text[i];
      if (isBlank(c)) continue;
      if (isDigit(c)) {
        digitSeen = true;
        if (exponent < 1'000'000'000'000) exponent = exponent * 10 + (c - '0');
      } else if ((c == '+' || c == '-') && !signSeen && !digitSeen) {
        signSeen = true;
        expNegative = c == '-';
      } else {
        break;
      }
    }
    if (expNegative) exponent = -exponent;
  }

  if (!detail::digitsToDouble(digits, exponent - fractionDigits, negative, value))
    return ConvErrc::Overflow;
  char suffix = i < n ? text[i] : '\0';
  if ((suffix == '%' || suffix == '&') && fractionDigits > 0) return ConvErrc::TypeMismatch;
  if (!applyIntegerSuffix(value, suffix)) return ConvErrc::Overflow;
  return std::nullopt;
}

}  // namespace

double Val(std::string_view text) {
  double v;
  if (plainInteger(text, v)) return v;
  if (const Failure e = read(text, v))
    detail::fail(*e, *e == ConvErrc::Overflow ? "Overflow" : "Type mismatch");
  return v;
}

std::optional<double> TryVal(std::string_view text) {
  double v;
  if (plainInteger(text, v)) return v;
  if (read(text, v)) return std::nullopt;
  return v;
}

}  // namespace korvane::conv
