// The one place where text becomes a number and a number becomes text.
// Every value of the input language is text; these follow the classic BASIC /
// OLE Automation conventions the users' files were written against, with "."
// as the decimal separator in both directions so that results read back.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace korvane::conv {

// Failures carry the classic run-time error number so that messages can name them.
enum class ConvErrc : int {
  InvalidCall = 5,      // invalid procedure call or argument
  Overflow = 6,         // value outside the target type
  TypeMismatch = 13,    // text that is not a number
  InvalidPattern = 93,  // malformed wildcard pattern
};

class ConversionError : public std::runtime_error {
 public:
  ConversionError(ConvErrc code, const std::string& what) : std::runtime_error(what), code_(code) {}
  ConvErrc code() const { return code_; }

 private:
  ConvErrc code_;
};

// --- text to number -------------------------------------------------------
// Leading number of a text (Val): blanks inside skipped, "1e3"/"1d3" exponents,
// "12.5abc" is 12.5, no number is 0, "&H"/"&O" radix forms. Throws TypeMismatch
// for a fractional number ended by a "%" or "&" type suffix, Overflow past the
// double range.
// Radix literals are typed by size as BASIC literals are: "&HFFFF" is -1 (Integer),
// "&HFFFFFFFF" is -1 (Long), "&HFFFF&" is 65535; more than 64 bits is Overflow. A "%" or
// "&" suffix after a whole number rounds it to Integer/Long (Overflow outside).
double Val(std::string_view text);
// Val's value without the exception: nothing where Val fails.
std::optional<double> TryVal(std::string_view text);

// Strict conversions of "number", "integer" and "long" arguments (CDbl, CInt,
// CLng). A text that is not a number throws TypeMismatch; integers round halves
// to the even neighbour and throw Overflow outside their range.
// Accepted: blanks (space, TAB, CR, LF) around the number, one leading sign, digits with
// one optional ".", an "E"/"e" exponent, and "&H"/"&O" literals (with an optional "%"/"&"
// suffix). Not accepted: ",", currency signs, parentheses, trailing signs, blanks inside,
// the "D" exponent, "Inf"/"NaN". Texts for CInt/CLng are read as a Double first.
double CDbl(std::string_view text);
std::int16_t CInt(std::string_view text);
std::int32_t CLng(std::string_view text);
std::int16_t CInt(double value);
std::int32_t CLng(double value);
// True when CDbl would accept the text (IsNumeric).
bool IsNumeric(std::string_view text);

// --- number to text -------------------------------------------------------
// General form (CStr): 15 significant digits, exact ties rounded away from
// zero, no trailing zeros, exponent form outside 1E-04 .. 1E+15 ("1E+20",
// "1E-05"), "-0" printed as "0". Infinities and NaN give "1.#INF", "-1.#INF" and
// "1.#QNAN" (the classic Windows runtime spellings); no conversion here yields them.
std::string CStr(double value);

// --- Format ----------------------------------------------------------------
// Format(value, pattern): numeric patterns ("0.000", "#,##0.00", "0%",
// "0.00E+00", ";"-separated sections), named formats ("Fixed", "Standard",
// "Percent", "Scientific", "General Number", "Short Date", ...), date/time
// patterns ("yyyy-mm-dd", "hh:nn:ss") for date-like values, string patterns
// ("@", "&", "<", ">"). An empty pattern gives the general form of the value.
// Numbers use "." and "," whatever the system locale, so results read back. Names and
// locale-dependent forms are those of a fixed en-US-like locale (English month and day
// names, "/" and ":" separators, AM/PM, Short Date m/d/yyyy, Currency "$"); weeks start on
// Sunday, week 1 holds 1 January. A text that fits neither the pattern's kind (number,
// date, text) comes back unchanged. Throws InvalidCall for more than four sections.
std::string Format(std::string_view value, std::string_view pattern);

// --- dates ------------------------------------------------------------------
// Dates are day counts from 1899-12-30 with the time of day as the fraction.
double NowSerial();
// Date-like text ("2024-03-05", "2024.03.05", "2024-03-05 14:07:09", "14:07")
// to a serial; false when the text is not a date. Also "2024/03/05", "2024. 03. 05.",
// the month-first "3/5/2024" of the en-US short date, and times with AM/PM.
// Years 100 to 9999.
bool ParseDate(std::string_view text, double& serial);
// The `date` and `time` functions' forms: the user locale's short date and long time.
// On Windows these come from GetDateFormat/GetTimeFormat of the user locale. Elsewhere the
// environment variables KORVANE_DATE_FORMAT and KORVANE_TIME_FORMAT, when set, hold Format
// patterns for them; otherwise the fixed Hungarian forms "yyyy.mm.dd." (2024.03.05.) and
// "hh:nn:ss" (14:07:09) are used.
std::string ShortDate(double serial);  // the `date` function's form
std::string LongTime(double serial);   // the `time` function's form

// --- wildcard match (Like, binary comparison) --------------------------------
// "?" one character, "*" any run, "#" one digit, "[list]", "[!list]", ranges.
// Throws InvalidPattern for an unclosed "[" or a descending range.
bool Like(std::string_view text, std::string_view pattern);

}  // namespace korvane::conv
