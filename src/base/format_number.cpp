// Number sections of Format: digit placeholders, grouping, percent and exponents.
#include <algorithm>
#include <cstdlib>

#include "base/format_pattern.h"

namespace korvane::conv::detail {
namespace {

// Placeholder counts of a section, before and after its decimal point.
struct Layout {
  long whole = 0;     // integer placeholders
  long minWhole = 0;  // integer placeholders from the first "0" on: digits always shown
  long fraction = 0;  // placeholders after the point
  long lastZero = 0;  // position of the last "0" after the point: digits always shown
  bool scientific = false;
};

Layout layoutOf(const Section& s) {
  Layout l;
  bool afterPoint = false, sawZero = false;
  for (const Token& t : s.tokens) {
    if (t.kind == TokenKind::DecimalPoint) afterPoint = true;
    if (t.kind == TokenKind::Exponent) l.scientific = true;
    if (t.kind != TokenKind::DigitZero && t.kind != TokenKind::DigitHash) continue;
    bool zero = t.kind == TokenKind::DigitZero;
    if (afterPoint) {
      ++l.fraction;
      if (zero) l.lastZero = l.fraction;
    } else {
      sawZero = sawZero || zero;
      ++l.whole;
      if (sawZero) ++l.minWhole;
    }
  }
  return l;
}

std::string exponentText(const Token& t, long exponent) {
  std::string out(1, t.lowerE ? 'e' : 'E');
  if (exponent < 0)
    out += '-';
  else if (t.plusSign)
    out += '+';
  std::string digits = std::to_string(std::labs(exponent));
  if (static_cast<long>(digits.size()) < t.digits)
    out.append(static_cast<std::size_t>(t.digits) - digits.size(), '0');
  return out + digits;
}

}  // namespace

// Digits come from the 15-digit string and round half away from zero at the last shown place.
// Integer digits beyond the placeholders all go to the first one; fewer digits than
// placeholders leave the leading "#"s empty. In scientific form the integer placeholders fix
// how many digits stand before the point and the exponent makes up the rest.
std::string formatNumberSection(const Section& s, Decimal d, bool autoMinus) {
  const Layout l = layoutOf(s);
  if (s.percent && !d.isZero()) d.pointPos += 2;
  long exponent = 0;
  if (l.scientific && !d.isZero()) {
    exponent = d.pointPos - l.whole;
    d.pointPos = static_cast<int>(l.whole);
    roundToFraction(d, static_cast<int>(l.fraction));
    if (d.pointPos > l.whole) {  // 9.99 -> 10.0: renormalise
      exponent += d.pointPos - l.whole;
      d.pointPos = static_cast<int>(l.whole);
    }
  } else {
    roundToFraction(d, static_cast<int>(l.fraction));
  }

  const long n = static_cast<long>(d.digits.size());
  std::string whole, fraction;
  if (!d.isZero() && d.pointPos > 0) {
    whole = d.digits.substr(0, static_cast<std::size_t>(std::min<long>(d.pointPos, n)));
    if (d.pointPos > n) whole.append(static_cast<std::size_t>(d.pointPos - n), '0');
  }
  if (static_cast<long>(whole.size()) < l.minWhole)
    whole.insert(0, static_cast<std::size_t>(l.minWhole) - whole.size(), '0');
  if (!d.isZero() && d.pointPos < n) {
    if (d.pointPos < 0) fraction.assign(static_cast<std::size_t>(-d.pointPos), '0');
    fraction += d.digits.substr(static_cast<std::size_t>(std::max(d.pointPos, 0)));
  }
  const long shownFraction = std::max(static_cast<long>(fraction.size()), l.lastZero);

  std::string out;
  bool minusPending = autoMinus, afterPoint = false;
  std::size_t nextDigit = 0;
  long wholeIndex = 0, fractionIndex = 0;
  const long excess = static_cast<long>(whole.size()) - l.whole;
  auto emitWhole = [&](long count) {
    for (; count > 0; --count) {
      out += whole[nextDigit++];
      std::size_t remaining = whole.size() - nextDigit;
      if (s.thousands && remaining > 0 && remaining % 3 == 0) out += ',';
    }
  };
  auto emitMinus = [&] {
    if (minusPending) out += '-';
    minusPending = false;
  };

  for (const Token& t : s.tokens) {
    switch (t.kind) {
      case TokenKind::Literal:
        out += t.text;
        break;
      case TokenKind::DecimalPoint:
        emitMinus();
        if (l.whole == 0) emitWhole(static_cast<long>(whole.size()));
        out += '.';
        afterPoint = true;
        break;
      case TokenKind::DigitZero:
      case TokenKind::DigitHash:
        if (afterPoint) {
          ++fractionIndex;
          if (fractionIndex <= static_cast<long>(fraction.size()))
            out += fraction[static_cast<std::size_t>(fractionIndex - 1)];
          else if (fractionIndex <= shownFraction)
            out += '0';
        } else {
          emitMinus();
          long count =
              excess >= 0 ? (wholeIndex == 0 ? excess + 1 : 1) : (wholeIndex < -excess ? 0 : 1);
          emitWhole(count);
          ++wholeIndex;
        }
        break;
      case TokenKind::Exponent:
        out += exponentText(t, exponent);
        break;
      default:
        break;  // no date or text fields in a number section
    }
  }
  return out;
}

// Negative values take the second section, or the first with a "-" when there is none;
// exactly zero takes the third section when there is one.
std::string formatNumber(const Pattern& pattern, double value) {
  Decimal d = roundedDigits(value, 15);
  const bool negative = d.negative && !d.isZero();
  d.negative = false;
  const Section* section = &pattern.sections[0];
  bool autoMinus = false;
  if (negative) {
    if (pattern.sections[1].present)
      section = &pattern.sections[1];
    else
      autoMinus = true;
  } else if (d.isZero() && pattern.sections[2].present) {
    section = &pattern.sections[2];
  }
  return formatNumberSection(*section, std::move(d), autoMinus);
}

}  // namespace korvane::conv::detail
