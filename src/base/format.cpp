// Format: picks how a text is formatted (number, date or text) and applies the pattern.
#include "base/codepage.h"
#include "base/format_pattern.h"

namespace korvane::conv {
namespace detail {

// "@" takes a character or gives a blank, "&" takes a character or gives nothing; with fewer
// characters than placeholders the first "@"s give the blanks, so the text is right-aligned.
// Characters left over follow the output. ">" upper-cases and "<" lower-cases the characters
// taken from the text (not the literals); without either the case is left alone.
std::string formatStringSection(const Section& s, std::string_view text) {
  auto cased = [&](char c) { return s.lower ? cp::toLower(c) : s.upper ? cp::toUpper(c) : c; };
  long blanksFirst = static_cast<long>(s.charPlaceholders) - static_cast<long>(text.size());
  std::size_t next = 0;
  std::string out;
  for (const Token& t : s.tokens) {
    if (t.kind == TokenKind::Literal) {
      out += t.text;
    } else if (t.kind == TokenKind::CharOrSpace) {
      if (blanksFirst > 0) {
        out += ' ';
        --blanksFirst;
      } else {
        out += next < text.size() ? cased(text[next++]) : ' ';
      }
    } else if (t.kind == TokenKind::CharOrNothing && next < text.size()) {
      out += cased(text[next++]);
    }
  }
  for (; next < text.size(); ++next) out += cased(text[next]);
  return out;
}

}  // namespace detail

namespace {

using detail::Pattern;
using detail::PatternType;

// What a text can be read as: a number (CDbl accepts it) and/or a date serial (a number, or a
// date-like text).
struct Value {
  std::string text;
  bool numeric = false;    // CDbl accepts the text
  bool hasNumber = false;  // numeric or date-like
  double number = 0;

  static Value of(std::string_view text) {
    Value v{std::string(text)};
    double serial = 0;
    if (IsNumeric(text)) {
      v.number = CDbl(text);
      v.numeric = v.hasNumber = true;
    } else if (ParseDate(text, serial)) {
      v.number = serial;
      v.hasNumber = true;
    }
    return v;
  }
};

std::string asNumber(const Value& v, const Pattern& p) {
  return v.hasNumber ? detail::formatNumber(p, v.number) : v.text;
}

std::string asDate(const Value& v, const Pattern& p) {
  detail::DateParts parts;
  if (!v.hasNumber || !detail::splitSerial(v.number, parts)) return v.text;
  return detail::formatDateSection(p.sections[0], parts, v.number);
}

std::string asText(const Value& v, const Pattern& p) {
  const bool empty = v.text.empty() && p.sections[1].present;
  return detail::formatStringSection(p.sections[empty ? 1 : 0], v.text);
}

enum class Named { None, GeneralNumber, NumberPattern, Boolean, DatePattern };

struct NamedFormat {
  const char* name;
  Named kind;
  const char* pattern;  // for Boolean: "word for non-zero/word for zero"
};

// Named formats in the fixed en-US-like locale of this module; Currency uses "$".
const NamedFormat kNamed[] = {
    {"General Number", Named::GeneralNumber, ""},
    {"Currency", Named::NumberPattern, "$#,##0.00;($#,##0.00)"},
    {"Fixed", Named::NumberPattern, "0.00"},
    {"Standard", Named::NumberPattern, "#,##0.00"},
    {"Percent", Named::NumberPattern, "0.00%"},
    {"Scientific", Named::NumberPattern, "0.00E+00"},
    {"Yes/No", Named::Boolean, "Yes/No"},
    {"True/False", Named::Boolean, "True/False"},
    {"On/Off", Named::Boolean, "On/Off"},
    {"General Date", Named::DatePattern, "c"},
    {"Long Date", Named::DatePattern, "dddddd"},
    {"Medium Date", Named::DatePattern, "dd-mmm-yy"},
    {"Short Date", Named::DatePattern, "ddddd"},
    {"Long Time", Named::DatePattern, "ttttt"},
    {"Medium Time", Named::DatePattern, "hh:nn AMPM"},
    {"Short Time", Named::DatePattern, "hh:nn"},
};

std::string formatValue(const Value& v, std::string_view pattern) {
  if (pattern.empty()) return v.numeric ? CStr(v.number) : v.text;
  for (const NamedFormat& named : kNamed) {
    if (!cp::equalsIgnoreCase(pattern, named.name)) continue;
    if (!v.hasNumber) return v.text;
    std::string_view words = named.pattern;
    switch (named.kind) {
      case Named::GeneralNumber:
        return CStr(v.number);
      case Named::NumberPattern:
        return asNumber(v, detail::parsePattern(named.pattern));
      case Named::DatePattern:
        return asDate(v, detail::parsePattern(named.pattern));
      case Named::Boolean: {
        std::size_t slash = words.find('/');
        bool zero = detail::roundedDigits(v.number).isZero();
        return std::string(zero ? words.substr(slash + 1) : words.substr(0, slash));
      }
      case Named::None:
        break;
    }
  }
  const Pattern p = detail::parsePattern(pattern);
  switch (p.type) {
    case PatternType::Number:
      return asNumber(v, p);
    case PatternType::Date:
      return asDate(v, p);
    case PatternType::String:
      return asText(v, p);
    case PatternType::Unknown:
      return IsNumeric(v.text) ? asNumber(v, p) : asText(v, p);
  }
  return v.text;
}

}  // namespace

// Numeric texts format as numbers (and as date serials under a date pattern), date-like texts
// as dates (and as their serial under a number pattern); a text that fits neither the pattern
// nor any other reading comes back unchanged. An empty pattern gives the general form: CStr
// of a numeric text, other texts as they are.
std::string Format(std::string_view value, std::string_view pattern) {
  return formatValue(Value::of(value), pattern);
}

std::string detail::formatSerial(double serial, std::string_view pattern) {
  Value v{CStr(serial), true, true, serial};
  return formatValue(v, pattern);
}

}  // namespace korvane::conv
