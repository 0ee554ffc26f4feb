// The Format pattern language: a pattern split into sections of tokens.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/conv_detail.h"

namespace korvane::conv::detail {

// What kind of value a user pattern formats, fixed by the first type-specific token of its
// first section; a pattern of literals only stays Unknown.
enum class PatternType { Unknown, Number, Date, String };

enum class TokenKind {
  Literal,       // text copied as it stands
  DigitZero,     // "0": a digit, or 0 when there is none
  DigitHash,     // "#": a digit, or nothing
  DecimalPoint,  // the first "." of a number section
  Exponent,      // "E+", "E-", "e+", "e-" and the zeros after it
  DateField,     // one date or time field, see DateField
  CharOrSpace,   // "@": a character of the text, or a blank
  CharOrNothing  // "&": a character of the text, or nothing
};

enum class DateField {
  Day,
  Day0,
  DayAbbrev,
  DayName,
  ShortDate,
  LongDate,  // d dd ddd dddd ddddd dddddd
  Weekday,
  WeekOfYear,  // w ww
  Month,
  Month0,
  MonthAbbrev,
  MonthName,  // m mm mmm mmmm
  Quarter,
  DayOfYear,
  Year2,
  Year4,  // q y yy yyyy
  Hour,
  Hour0,
  Minute,
  Minute0,
  Second,
  Second0,  // h hh n nn s ss (m mm after hours)
  AmPmUpper,
  AmPmLower,
  APUpper,
  APLower,
  AmPmLocale,  // AM/PM am/pm A/P a/p AMPM
  DateSeparator,
  TimeSeparator,  // / :
  General,
  LongTime  // c ttttt
};

struct Token {
  TokenKind kind = TokenKind::Literal;
  std::string text;                       // Literal
  DateField field = DateField::Day;       // DateField
  bool twelveHour = false;                // hour fields followed by an AM/PM field
  bool lowerE = false, plusSign = false;  // Exponent
  int digits = 0;                         // Exponent: least number of exponent digits
};

struct Section {
  bool present = false;
  std::vector<Token> tokens;
  bool thousands = false;             // a "," after a digit placeholder
  bool percent = false;               // a "%" after a digit placeholder
  bool lower = false, upper = false;  // "<" and ">" of string sections
  int charPlaceholders = 0;           // "@" and "&" of string sections
};

struct Pattern {
  PatternType type = PatternType::Unknown;
  std::array<Section, 4> sections;  // positive, negative, zero, null (string: text, empty)
};

// Throws InvalidCall for more than four sections.
Pattern parsePattern(std::string_view pattern);

// A number through one section. `value` holds the 15-digit string of the number's magnitude;
// `autoMinus` asks for a "-" before the first digit (a negative value with no negative section).
std::string formatNumberSection(const Section& section, Decimal value, bool autoMinus);
// A number through a whole pattern: picks the section by sign.
std::string formatNumber(const Pattern& pattern, double value);
std::string formatDateSection(const Section& section, const DateParts& parts, double serial);
std::string formatStringSection(const Section& section, std::string_view text);

}  // namespace korvane::conv::detail
