// CDbl, CInt, CLng and IsNumeric: strict text-to-number conversions.
#include <cstdint>

#include "base/conv_detail.h"

namespace korvane::conv {
namespace {

using detail::isBlank;
using detail::isDigit;

bool isHexDigit(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

// What a strict conversion accepts, locale-independent:
//   [blanks] [+|-] digits [. [digits]] [(E|e) [+|-] digits] [blanks]   (at least one digit;
//   ".5" and "5." are numbers), or
//   [blanks] &H hexdigits [%|&] [blanks] / [blanks] &O octdigits [%|&] [blanks].
// Blanks are space, TAB, CR and LF. Not accepted, unlike the regional conversions of the
// Windows runtime: "," (the input language never lets one through a field, and it would make
// "1,5" read as 15), currency symbols, parentheses or a trailing sign for negatives, the "D"
// exponent of Val, blanks inside the number, and "Inf"/"NaN". Returns the number without its
// surrounding blanks, or an empty view when the text is not a number.
std::string_view strictNumber(std::string_view text) {
  std::size_t b = 0, e = text.size();
  while (b < e && isBlank(text[b])) ++b;
  while (e > b && isBlank(text[e - 1])) --e;
  std::string_view s = text.substr(b, e - b);
  std::size_t i = 0, n = s.size();
  auto digitsWhile = [&](auto pred) {
    std::size_t start = i;
    while (i < n && pred(s[i])) ++i;
    return i - start;
  };
  if (n >= 2 && s[0] == '&') {
    char r = s[1];
    i = 2;
    std::size_t count = 0;
    if (r == 'H' || r == 'h')
      count = digitsWhile(isHexDigit);
    else if (r == 'O' || r == 'o')
      count = digitsWhile([](char c) { return c >= '0' && c <= '7'; });
    if (count == 0) return {};
    if (i < n && (s[i] == '%' || s[i] == '&')) ++i;
    return i == n ? s : std::string_view{};
  }
  if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t mantissa = digitsWhile(isDigit);
  if (i < n && s[i] == '.') {
    ++i;
    mantissa += digitsWhile(isDigit);
  }
  if (mantissa == 0) return {};
  if (i < n && (s[i] == 'e' || s[i] == 'E')) {
    ++i;
    if (i < n && (s[i] == '+' || s[i] == '-')) ++i;
    if (digitsWhile(isDigit) == 0) return {};
  }
  return i == n ? s : std::string_view{};
}

}  // namespace

double CDbl(std::string_view text) {
  std::string_view number = strictNumber(text);
  if (number.empty()) detail::fail(ConvErrc::TypeMismatch, "Type mismatch");
  return Val(number);  // the accepted forms are a subset of what Val reads
}

bool IsNumeric(std::string_view text) {
  try {
    CDbl(text);
    return true;
  } catch (const ConversionError&) {
    return false;
  }
}

// Text goes through the Double first, then rounds halves to even and checks the range.
std::int16_t CInt(double value) {
  return static_cast<std::int16_t>(detail::roundHalfEven(value, INT16_MIN, INT16_MAX));
}
std::int32_t CLng(double value) {
  return static_cast<std::int32_t>(detail::roundHalfEven(value, INT32_MIN, INT32_MAX));
}
std::int16_t CInt(std::string_view text) { return CInt(CDbl(text)); }
std::int32_t CLng(std::string_view text) { return CLng(CDbl(text)); }

}  // namespace korvane::conv
