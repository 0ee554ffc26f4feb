// Helpers shared by the conversion functions; not part of the public interface.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/conversions.h"

namespace korvane::conv::detail {

// Blanks that Val skips anywhere in a number: space, TAB, LF, CR.
inline bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

[[noreturn]] void fail(ConvErrc code, const std::string& what);

// A decimal number as significant digits: value = 0.d1d2d3... x 10^pointPos, i.e. pointPos is
// the number of digits before the decimal point (negative or zero for values below 0.1).
// Digits carry no leading or trailing zeros; an empty digit string is zero.
struct Decimal {
  bool negative = false;
  std::string digits;
  int pointPos = 0;

  bool isZero() const { return digits.empty(); }
};

// The exact decimal expansion of a finite double rounded half away from zero to
// `significant` digits. Classic BASIC shows a Double through its 15-digit string.
Decimal roundedDigits(double value, int significant = 15);

// The general form of a digit string: plain decimal when the decimal exponent E lies in
// -4 <= E < 15, otherwise d.dddE+XX with at least two exponent digits; "0" for zero.
std::string generalForm(const Decimal& d);

// Rounds a digit string to keep `fractionDigits` digits after the point, half away from zero
// (the first dropped digit decides). May grow the integer part ("9.99" -> "10").
void roundToFraction(Decimal& d, int fractionDigits);

// Value of the digit string `digits` (no point, leading zeros allowed) times 10^exp10.
// Returns false on overflow past the double range; underflow gives zero.
bool digitsToDouble(std::string_view digits, std::int64_t exp10, bool negative, double& out);

// Classic integer rounding: halves go to the even neighbour. Throws Overflow when the rounded
// value lies outside [lo, hi] or is not finite; roundedHalfEven gives nothing then.
std::int64_t roundHalfEven(double value, std::int64_t lo, std::int64_t hi);
std::optional<std::int64_t> roundedHalfEven(double value, std::int64_t lo, std::int64_t hi);

// --- calendar ---------------------------------------------------------------
// Serials cover 1 January 100 to 31 December 9999, as OLE dates do: day numbers
// -657434 to 2958465, and the time fraction on either side of them.
constexpr double kMinDay = -657434.0;
constexpr double kMaxDay = 2958465.0;

struct DateParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  int dayOfWeek = 6;  // 0 = Sunday
  int dayOfYear = 364;
};

// Day number of a calendar date (1899-12-30 is 0); no range check.
long long daySerial(int year, int month, int day);
int daysInMonth(int year, int month);
// Splits a serial into calendar fields, the time rounded to the second. The day is the
// whole part towards zero and the time of day the absolute fraction, so -1.25 is
// 1899-12-29 06:00. False for serials outside the supported range.
bool splitSerial(double serial, DateParts& parts);

// A serial formatted with a date pattern (the date half of Format).
std::string formatSerial(double serial, std::string_view pattern);

}  // namespace korvane::conv::detail
