// The one place where text becomes a number and a number becomes text.
// Every value of the input language is text; these follow the classic BASIC /
// OLE Automation conventions the users' files were written against, with "."
// as the decimal separator in both directions so that results read back.
#pragma once

#include <cstdint>
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
double Val(std::string_view text);

// Strict conversions of "number", "integer" and "long" arguments (CDbl, CInt,
// CLng). A text that is not a number throws TypeMismatch; integers round halves
// to the even neighbour and throw Overflow outside their range.
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
// "1E-05"), "-0" printed as "0".
std::string CStr(double value);

// --- Format ----------------------------------------------------------------
// Format(value, pattern): numeric patterns ("0.000", "#,##0.00", "0%",
// "0.00E+00", ";"-separated sections), named formats ("Fixed", "Standard",
// "Percent", "Scientific", "General Number", "Short Date", ...), date/time
// patterns ("yyyy-mm-dd", "hh:nn:ss") for date-like values, string patterns
// ("@", "&", "<", ">"). An empty pattern gives the general form of the value.
std::string Format(std::string_view value, std::string_view pattern);

// --- dates ------------------------------------------------------------------
// Dates are day counts from 1899-12-30 with the time of day as the fraction.
double NowSerial();
// Date-like text ("2024-03-05", "2024.03.05", "2024-03-05 14:07:09", "14:07")
// to a serial; false when the text is not a date.
bool ParseDate(std::string_view text, double& serial);
std::string ShortDate(double serial);  // the `date` function's form
std::string LongTime(double serial);   // the `time` function's form

// --- wildcard match (Like, binary comparison) --------------------------------
// "?" one character, "*" any run, "#" one digit, "[list]", "[!list]", ranges.
// Throws InvalidPattern for an unclosed "[" or a descending range.
bool Like(std::string_view text, std::string_view pattern);

}  // namespace korvane::conv
