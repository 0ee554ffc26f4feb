// Splitting a Format pattern into sections and tokens.
#include "base/format_pattern.h"

namespace korvane::conv::detail {
namespace {

char lowerAscii(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

class Tokenizer {
 public:
  explicit Tokenizer(std::string_view p) : p_(p) { pattern_.sections[0].present = true; }

  Pattern run() {
    while (i_ < p_.size()) step();
    return std::move(pattern_);
  }

 private:
  std::string_view p_;
  std::size_t i_ = 0;
  Pattern pattern_;
  int section_ = 0;
  bool wroteDecimal_ = false, seenHours_ = false, wroteMinutes_ = false;
  long lastHour_ = -1;  // index of the latest hour token of the section

  Section& cur() { return pattern_.sections[static_cast<std::size_t>(section_)]; }

  // Type-specific tokens count in the first section while the type is open, and in every
  // section once the pattern has that type; elsewhere their characters are literals.
  bool couldBe(PatternType t) const {
    return (section_ == 0 && pattern_.type == PatternType::Unknown) || pattern_.type == t;
  }

  void literal(std::string_view text) {
    auto& tokens = cur().tokens;
    if (!tokens.empty() && tokens.back().kind == TokenKind::Literal) {
      tokens.back().text += text;
    } else {
      Token t;
      t.text = std::string(text);
      tokens.push_back(std::move(t));
    }
  }

  void push(TokenKind kind) {
    Token t;
    t.kind = kind;
    cur().tokens.push_back(std::move(t));
  }

  bool date(DateField field, std::size_t length) {
    pattern_.type = PatternType::Date;
    Token t;
    t.kind = TokenKind::DateField;
    t.field = field;
    cur().tokens.push_back(std::move(t));
    i_ += length;
    return true;
  }

  bool at(std::string_view s, bool ignoreCase) const {
    if (p_.size() - i_ < s.size()) return false;
    for (std::size_t k = 0; k < s.size(); ++k) {
      char c = p_[i_ + k];
      if (ignoreCase ? lowerAscii(c) != lowerAscii(s[k]) : c != s[k]) return false;
    }
    return true;
  }

  // Length of the run of letter `c` (either case) at the cursor, at most `max`.
  std::size_t run(char c, std::size_t max) const {
    std::size_t n = 0;
    while (n < max && i_ + n < p_.size() && lowerAscii(p_[i_ + n]) == c) ++n;
    return n;
  }

  void newSection() {
    while (i_ < p_.size() && p_[i_] == ';') {
      ++i_;
      if (++section_ > 3)
        fail(ConvErrc::InvalidCall, "Format pattern with more than four sections");
    }
    if (i_ < p_.size()) cur().present = true;
    wroteDecimal_ = seenHours_ = wroteMinutes_ = false;
    lastHour_ = -1;
  }

  // An AM/PM field turns the hours before it to the 12-hour clock.
  bool ampm(DateField field, std::size_t length) {
    if (lastHour_ >= 0) cur().tokens[static_cast<std::size_t>(lastHour_)].twelveHour = true;
    return date(field, length);
  }

  bool numberToken(char c) {
    if ((c == '0' || c == '#') && couldBe(PatternType::Number)) {
      pattern_.type = PatternType::Number;
      push(c == '0' ? TokenKind::DigitZero : TokenKind::DigitHash);
    } else if (c == '.' && !wroteDecimal_ && couldBe(PatternType::Number)) {
      pattern_.type = PatternType::Number;
      push(TokenKind::DecimalPoint);
      wroteDecimal_ = true;
    } else if ((c == 'e' || c == 'E') && pattern_.type == PatternType::Number &&
               i_ + 1 < p_.size() && (p_[i_ + 1] == '+' || p_[i_ + 1] == '-')) {
      Token t;
      t.kind = TokenKind::Exponent;
      t.lowerE = c == 'e';
      t.plusSign = p_[i_ + 1] == '+';
      i_ += 2;
      for (; i_ < p_.size() && p_[i_] == '0'; ++i_) ++t.digits;
      cur().tokens.push_back(std::move(t));
      return true;
    } else if (c == ',' && pattern_.type == PatternType::Number) {
      cur().thousands = true;
    } else {
      return false;
    }
    ++i_;
    return true;
  }

  bool dateToken(char c) {
    if (!couldBe(PatternType::Date)) return false;
    const char l = lowerAscii(c);
    if (c == '/') return date(DateField::DateSeparator, 1);
    if (c == ':') return date(DateField::TimeSeparator, 1);
    if (at("AMPM", true)) return ampm(DateField::AmPmLocale, 4);
    if (at("AM/PM", false)) return ampm(DateField::AmPmUpper, 5);
    if (at("am/pm", false)) return ampm(DateField::AmPmLower, 5);
    if ((c == 'A' || c == 'a') && at("A/P", true))
      return ampm(c == 'A' ? DateField::APUpper : DateField::APLower, 3);
    switch (l) {
      case 'c':
        return date(DateField::General, 1);
      case 'q':
        return date(DateField::Quarter, 1);
      case 't':
        return at("ttttt", true) && date(DateField::LongTime, 5);
      case 'd': {
        static const DateField kDays[] = {DateField::Day,       DateField::Day0,
                                          DateField::DayAbbrev, DateField::DayName,
                                          DateField::ShortDate, DateField::LongDate};
        std::size_t n = run('d', 6);
        date(kDays[n - 1], n);
        seenHours_ = false;  // after a day, "m" is a month again
        return true;
      }
      case 'w': {
        std::size_t n = run('w', 2);
        date(n == 2 ? DateField::WeekOfYear : DateField::Weekday, n);
        return true;
      }
      case 'y': {
        std::size_t n = run('y', 4);
        if (n == 3) n = 2;  // "yyy" is "yy" then "y"
        date(n == 4 ? DateField::Year4 : n == 2 ? DateField::Year2 : DateField::DayOfYear, n);
        return true;
      }
      case 'h': {
        std::size_t n = run('h', 2);
        lastHour_ = static_cast<long>(cur().tokens.size());
        date(n == 2 ? DateField::Hour0 : DateField::Hour, n);
        seenHours_ = true;
        return true;
      }
      case 'n': {
        std::size_t n = run('n', 2);
        date(n == 2 ? DateField::Minute0 : DateField::Minute, n);
        return true;
      }
      case 's': {
        std::size_t n = run('s', 2);
        date(n == 2 ? DateField::Second0 : DateField::Second, n);
        return true;
      }
      case 'm': {
        // "m"/"mm" right after the hours (the first such, until a day token) means minutes.
        std::size_t n = run('m', 4);
        if (n <= 2 && seenHours_ && !wroteMinutes_) {
          wroteMinutes_ = true;
          date(n == 2 ? DateField::Minute0 : DateField::Minute, n);
        } else {
          static const DateField kMonths[] = {DateField::Month, DateField::Month0,
                                              DateField::MonthAbbrev, DateField::MonthName};
          date(kMonths[n - 1], n);
        }
        return true;
      }
      default:
        return false;
    }
  }

  bool stringToken(char c) {
    if (!couldBe(PatternType::String)) return false;
    Section& s = cur();
    switch (c) {
      case '@':
        push(TokenKind::CharOrSpace);
        ++s.charPlaceholders;
        break;
      case '&':
        push(TokenKind::CharOrNothing);
        ++s.charPlaceholders;
        break;
      case '<':
        s.lower = true;
        break;
      case '>':
        s.upper = true;
        break;
      case '!':
        break;  // accepted; fills run left to right anyway
      default:
        return false;
    }
    pattern_.type = PatternType::String;
    ++i_;
    return true;
  }

  void step() {
    const char c = p_[i_];
    if (c == ';') return newSection();
    if (c == '\\') {
      if (i_ + 1 < p_.size()) literal(p_.substr(i_ + 1, 1));
      i_ += 2;
      return;
    }
    if (c == '"') {
      std::size_t end = p_.find('"', i_ + 1);
      if (end == std::string_view::npos) end = p_.size();
      if (end > i_ + 1) literal(p_.substr(i_ + 1, end - i_ - 1));
      i_ = end + 1;
      return;
    }
    if (numberToken(c) || dateToken(c) || stringToken(c)) return;
    if (c == '%' && pattern_.type == PatternType::Number) cur().percent = true;
    literal(p_.substr(i_, 1));
    ++i_;
  }
};

}  // namespace

Pattern parsePattern(std::string_view pattern) { return Tokenizer(pattern).run(); }

}  // namespace korvane::conv::detail
