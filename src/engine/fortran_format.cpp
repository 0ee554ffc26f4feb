#include "engine/fortran_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "engine/engine_error.h"
#include "engine/engine_limits.h"
#include "engine/model_string.h"

namespace korvane::engine {
namespace {

constexpr int kMaxWidth = 255;
constexpr int kMaxRepeat = 999;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

class Parser {
 public:
  explicit Parser(std::string_view descriptors) : original_(descriptors) {
    for (char c : descriptors)
      if (c != ' ') s_ += (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c;
  }

  std::vector<FormatNode> parse() {
    std::vector<FormatNode> nodes;
    expect('(');
    list(nodes);
    if (pos_ != s_.size()) fail("text after the closing parenthesis");
    return nodes;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw EngineError("malformed FORMAT " + excerpt(original_) + ": " + what);
  }
  void expect(char c) {
    if (pos_ >= s_.size() || s_[pos_] != c)
      fail(std::string("'") + c + "' expected at position " + std::to_string(pos_ + 1));
    ++pos_;
  }
  char peek() const { return pos_ < s_.size() ? s_[pos_] : '\0'; }
  // Reads an unsigned number; -1 when there is none.
  int number() {
    if (!isDigit(peek())) return -1;
    long v = 0;
    while (isDigit(peek())) {
      v = v * 10 + (s_[pos_++] - '0');
      if (v > 100000) v = 100000;
    }
    return static_cast<int>(v);
  }

  static bool separatorFree(const FormatNode& n) {
    return !n.isGroup && (n.edit == Edit::Slash || n.edit == Edit::Colon);
  }

  // list := item { sep item } ")"; sep is "," but may be left out around "/" and ":".
  void list(std::vector<FormatNode>& nodes) {
    for (;;) {
      if (peek() == ')') {
        if (nodes.empty()) fail("empty parentheses");
        ++pos_;
        return;
      }
      std::size_t at = pos_;
      int count = number();
      if (count == 0 || count > kMaxRepeat)
        fail("repeat count out of range at position " + std::to_string(at + 1));
      FormatNode node;
      node.repeat = count < 0 ? 1 : count;
      item(node, count);
      nodes.push_back(std::move(node));
      char c = peek();
      if (c == ',') {
        ++pos_;
        if (peek() == ')') fail("',' before ')'");
        continue;
      }
      if (c == ')' || separatorFree(nodes.back())) continue;
      std::size_t look = pos_;
      while (look < s_.size() && isDigit(s_[look])) ++look;
      if (look < s_.size() && (s_[look] == '/' || s_[look] == ':')) continue;
      if (c == '\0') fail("missing ')'");
      fail("',' expected at position " + std::to_string(pos_ + 1));
    }
  }

  void width(FormatNode& node, bool decimals, bool optional, int fallback) {
    std::size_t at = pos_;
    int w = number();
    if (w < 0) {
      if (!optional) fail("width expected at position " + std::to_string(at + 1));
      node.width = fallback;
      return;
    }
    if (w < 1 || w > kMaxWidth) fail("width out of range at position " + std::to_string(at + 1));
    node.width = w;
    if (!decimals) return;
    if (peek() != '.') fail("'.d' expected at position " + std::to_string(pos_ + 1));
    ++pos_;
    int d = number();
    if (d < 0) fail("decimals expected at position " + std::to_string(pos_ + 1));
    if (d >= w) fail("decimals not below the width at position " + std::to_string(at + 1));
    node.decimals = d;
  }

  void item(FormatNode& node, int count) {
    char c = peek();
    std::size_t at = pos_;
    ++pos_;
    switch (c) {
      case '(':
        node.isGroup = true;
        if (++depth_ >= kMaxFormatNesting)
          fail("parentheses nested more than " + std::to_string(kMaxFormatNesting) + " deep");
        list(node.group);
        --depth_;
        return;
      case 'F':
        node.edit = Edit::F;
        return width(node, true, false, 0);
      case 'E':
      case 'D':
        node.edit = c == 'E' ? Edit::E : Edit::D;
        width(node, true, false, 0);
        if (node.decimals < 1) fail("E and D need at least one decimal");
        return;
      case 'I':
        node.edit = Edit::I;
        return width(node, false, false, 0);
      case 'A':
        node.edit = Edit::A;
        return width(node, false, true, static_cast<int>(kTextWidth));
      case 'X':
        node.edit = Edit::X;
        node.width = node.repeat;
        node.repeat = 1;
        return;
      case '/':
        node.edit = Edit::Slash;
        return;
      case ':':
        if (count >= 0) fail("':' takes no repeat count");
        node.edit = Edit::Colon;
        return;
      default:
        pos_ = at;
        if (c == '\0') fail("missing ')'");
        fail(std::string("unsupported edit descriptor '") + c + "' at position " +
             std::to_string(at + 1) + " (supported: F, E, D, I, A, X, /, :)");
    }
  }

  std::string s_;
  std::string original_;
  std::size_t pos_ = 0;
  int depth_ = 0;  // groups open inside the format's own parentheses
};

void appendText(std::string& out, const std::vector<FormatNode>& nodes) {
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    const FormatNode& n = nodes[i];
    bool free = n.edit == Edit::Slash || n.edit == Edit::Colon;
    if (i > 0) {
      const FormatNode& prev = nodes[i - 1];
      bool prevFree = !prev.isGroup && (prev.edit == Edit::Slash || prev.edit == Edit::Colon);
      // A slash may stand without a comma, but not a repeated one: "F10.3,2/"
      // written as "F10.32/" would read back as F10.32 and a single slash.
      const bool bare = free && !n.isGroup && n.repeat == 1;
      if (!bare && !prevFree) out += ',';
    }
    if (n.isGroup) {
      if (n.repeat != 1) out += std::to_string(n.repeat);
      out += '(';
      appendText(out, n.group);
      out += ')';
      continue;
    }
    if (n.repeat != 1) out += std::to_string(n.repeat);
    switch (n.edit) {
      case Edit::F:
        out += "F" + std::to_string(n.width) + "." + std::to_string(n.decimals);
        break;
      case Edit::E:
        out += "E" + std::to_string(n.width) + "." + std::to_string(n.decimals);
        break;
      case Edit::D:
        out += "D" + std::to_string(n.width) + "." + std::to_string(n.decimals);
        break;
      case Edit::I:
        out += "I" + std::to_string(n.width);
        break;
      case Edit::A:
        out += "A" + std::to_string(n.width);
        break;
      case Edit::X:
        out += std::to_string(n.width) + "X";
        break;
      case Edit::Slash:
        out += "/";
        break;
      case Edit::Colon:
        out += ":";
        break;
    }
  }
}

// Walks the format for one statement, placing items. When the items are used
// up it goes on to the end of the record without placing any, so that the
// record's width is known: a READ consumes its last record whole.
struct Walk {
  int items = 0;
  int used = 0;
  int column = 0;
  long steps = 0;
  bool stop = false;
  bool measuring = false;  // past a data descriptor with no item left
  bool tooLong = false;    // more than kMaxFormatSteps
  RecordLayout* out = nullptr;

  void newRecord() {
    out->lengths.push_back(0);
    out->widths.push_back(0);
    column = 0;
  }
  void advance(int width) {
    column += width;
    out->widths.back() = std::max(out->widths.back(), column);
  }
  void run(const std::vector<FormatNode>& nodes, std::size_t from) {
    for (std::size_t i = from; i < nodes.size() && !stop; ++i) {
      const FormatNode& n = nodes[i];
      for (int r = 0; r < n.repeat && !stop; ++r) {
        if (++steps > kMaxFormatSteps) {
          // Past the last item the rest of the record is only measured: a
          // record too long to walk is taken as wide as any.
          if (measuring) out->widths.back() = std::numeric_limits<int>::max();
          tooLong = !measuring;
          stop = true;
          return;
        }
        if (n.isGroup) {
          run(n.group, 0);
          continue;
        }
        switch (n.edit) {
          case Edit::X:
            advance(n.width);
            break;
          case Edit::Slash:
            stop = measuring;
            if (!stop) newRecord();
            break;
          case Edit::Colon:
            stop = used == items;
            break;
          default:
            if (used == items) {  // no item left: the rest of the record is skipped
              measuring = true;
              advance(n.width);
              break;
            }
            out->slots.push_back({out->records() - 1, column, n.width, n.decimals, n.edit});
            advance(n.width);
            out->lengths.back() = column;
            ++used;
        }
      }
    }
  }
};

}  // namespace

bool isNumericEdit(Edit e) { return e == Edit::F || e == Edit::E || e == Edit::D || e == Edit::I; }

FortranFormat FortranFormat::parse(std::string_view descriptors) {
  FortranFormat f;
  f.nodes_ = Parser(descriptors).parse();
  f.layout(1);  // a format without a data descriptor is refused here
  return f;
}

FortranFormat FortranFormat::mxDefault() { return parse("(3D23.17)"); }

std::string FortranFormat::text() const {
  std::string out = "(";
  appendText(out, nodes_);
  return out + ")";
}

RecordLayout FortranFormat::layout(int items) const {
  RecordLayout out;
  Walk w;
  w.items = items;
  w.out = &out;
  auto tooLong = [&] {
    throw EngineError("malformed FORMAT " + excerpt(text()) +
                      ": one READ or WRITE expands to more than " +
                      std::to_string(kMaxFormatSteps) + " edit descriptors");
  };
  w.newRecord();
  w.run(nodes_, 0);
  if (w.tooLong) tooLong();
  if (w.used == 0 && items > 0)
    throw EngineError("FORMAT " + text() + " has no data edit descriptor");
  std::size_t revert = 0;
  for (std::size_t i = 0; i < nodes_.size(); ++i)
    if (nodes_[i].isGroup) revert = i;
  while (!w.stop && w.used < items) {
    int before = w.used;
    w.newRecord();
    w.run(nodes_, revert);
    if (w.tooLong) tooLong();
    if (w.used == before)
      throw EngineError("FORMAT " + text() + " has no data edit descriptor to revert to");
  }
  return out;
}

namespace {

// The items of one pass through the format.
std::vector<FieldSlot> onePass(const std::vector<FormatNode>& nodes) {
  RecordLayout all;
  Walk w;
  w.items = std::numeric_limits<int>::max();
  w.out = &all;
  w.newRecord();
  w.run(nodes, 0);
  return all.slots;
}

}  // namespace

int FortranFormat::firstRecordItems() const {
  const std::vector<FieldSlot> all = onePass(nodes_);
  return static_cast<int>(
      std::count_if(all.begin(), all.end(), [](const FieldSlot& s) { return s.record == 0; }));
}

int FortranFormat::itemsPerPass() const { return static_cast<int>(onePass(nodes_).size()); }

// --- reading -----------------------------------------------------------------

namespace {

// Room for the normalised text of a number: a field of any width fits when it
// is at most this long; longer texts (free-form fields) use the heap.
constexpr std::size_t kNumberBuffer = 320;

}  // namespace

bool parseFortranNumber(std::string_view s, int impliedDecimals, double& out) {
  if (s.empty()) {
    out = 0;
    return true;
  }
  // The number is rewritten as "[-]digits e exponent" (digits without the
  // point and without leading zeros) and converted by std::from_chars, which
  // gives the nearest double whatever the locale.
  char local[kNumberBuffer];
  std::string heap;
  char* buf = local;
  if (s.size() + 24 > sizeof local) {
    heap.resize(s.size() + 24);
    buf = heap.data();
  }
  std::size_t len = 0, i = 0, n = s.size();
  bool negative = false;
  if (s[i] == '+' || s[i] == '-') negative = s[i++] == '-';
  if (negative) buf[len++] = '-';
  long digits = 0, significant = 0, fraction = 0;
  bool point = false;
  for (; i < n; ++i) {
    char c = s[i];
    if (isDigit(c)) {
      ++digits;
      if (point) ++fraction;
      if (c != '0' || significant > 0) {
        buf[len++] = c;
        ++significant;
      }
    } else if (c == '.' && !point) {
      point = true;
    } else {
      break;
    }
  }
  if (digits == 0) return false;
  if (significant == 0) buf[len++] = '0';
  long exponent = 0;
  if (i < n) {
    char c = s[i];
    bool letter = c == 'E' || c == 'e' || c == 'D' || c == 'd' || c == 'Q' || c == 'q';
    if (!letter && c != '+' && c != '-') return false;
    if (letter) ++i;
    bool expNegative = false;
    if (i < n && (s[i] == '+' || s[i] == '-')) expNegative = s[i++] == '-';
    if (i == n) return false;
    for (; i < n; ++i) {
      if (!isDigit(s[i])) return false;
      if (exponent < 100000) exponent = exponent * 10 + (s[i] - '0');
    }
    if (expNegative) exponent = -exponent;
  }
  exponent -= point ? fraction : impliedDecimals;
  buf[len++] = 'e';
  len = static_cast<std::size_t>(std::to_chars(buf + len, buf + len + 16, exponent).ptr - buf);
  double v = 0;
  auto r = std::from_chars(buf, buf + len, v);
  if (r.ec == std::errc::result_out_of_range) {
    // Below the smallest double the value is 0; above the largest, no number.
    if (significant + exponent > 0) return false;
    v = negative ? -0.0 : 0.0;
  } else if (r.ec != std::errc() || r.ptr != buf + len) {
    return false;
  }
  out = v;
  return true;
}

namespace {

// The common case read in one pass: a number with a decimal point, blanks
// dropped, its exponent letter (or a bare exponent sign) turned into 'e'.
// False when the field is anything else; parseFortranNumber then decides.
bool readPointedNumber(std::string_view field, double& out) {
  char buf[kNumberBuffer];
  if (field.size() + 2 > sizeof buf) return false;
  std::size_t n = 0;
  bool sign = false, digits = false, point = false, exponent = false;
  for (char c : field) {
    if (c == ' ') continue;
    if (isDigit(c)) {
      digits = true;
      buf[n++] = c;
    } else if (c == '.' && !point && !exponent) {
      point = true;
      buf[n++] = c;
    } else if (c == 'E' || c == 'e' || c == 'D' || c == 'd' || c == 'Q' || c == 'q') {
      if (exponent || !digits) return false;
      exponent = true;
      buf[n++] = 'e';
    } else if (c == '+' || c == '-') {
      if (n == 0 && !sign) {  // the number's sign; from_chars takes no '+'
        sign = true;
        if (c == '-') buf[n++] = c;
      } else if (!exponent && digits) {  // 0.1234+100
        exponent = true;
        buf[n++] = 'e';
        buf[n++] = c;
      } else if (exponent && buf[n - 1] == 'e') {
        buf[n++] = c;
      } else {
        return false;
      }
    } else {
      return false;
    }
  }
  if (!point || !digits) return false;
  auto r = std::from_chars(buf, buf + n, out);
  return r.ec == std::errc() && r.ptr == buf + n;
}

}  // namespace

std::optional<double> readNumberField(std::string_view field, const FieldSlot& slot) {
  double out = 0;
  if (slot.edit != Edit::I && readPointedNumber(field, out)) return out;
  char local[kNumberBuffer];
  std::string heap;
  char* compact = local;
  if (field.size() > sizeof local) {
    heap.resize(field.size());
    compact = heap.data();
  }
  std::size_t len = 0;
  for (char c : field)
    if (c != ' ') compact[len++] = c;
  std::string_view number(compact, len);
  if (!parseFortranNumber(number, slot.edit == Edit::I ? 0 : slot.decimals, out))
    return std::nullopt;
  if (slot.edit == Edit::I && number.find_first_not_of("+-0123456789") != std::string::npos)
    return std::nullopt;
  return out;
}

std::string notANumber(std::string_view field, const FieldSlot& slot) {
  return "'" + excerpt(field) + "' in columns " + std::to_string(slot.column + 1) + "-" +
         std::to_string(slot.column + slot.width) + " is not a number";
}

std::string readTextField(std::string_view field) {
  std::string v = field.size() > kTextWidth ? std::string(field.substr(field.size() - kTextWidth))
                                            : std::string(field);
  std::size_t end = v.find_last_not_of(' ');
  return end == std::string::npos ? std::string() : v.substr(0, end + 1);
}

// --- writing -----------------------------------------------------------------

namespace {

std::string fit(std::string s, int width) {
  if (static_cast<int>(s.size()) > width) {
    // The zero before the decimal point is optional when room is short.
    std::size_t z = s.rfind("0.", 1);
    if (z != std::string::npos && (z == 0 || s[0] == '-')) s.erase(z, 1);
  }
  if (static_cast<int>(s.size()) > width) return std::string(static_cast<std::size_t>(width), '*');
  return std::string(static_cast<std::size_t>(width) - s.size(), ' ') + s;
}

std::string fixed(double v, int decimals) {
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.*f", decimals, v);
  std::string s = buf;
  if (s[0] == '-' && s.find_first_not_of("-0.") == std::string::npos) s.erase(0, 1);
  return s;
}

std::string exponential(double v, int decimals, char letter) {
  std::string sign = v < 0 ? "-" : "";
  std::string digits;
  long exponent = 0;
  if (v == 0) {
    digits.assign(static_cast<std::size_t>(decimals), '0');
  } else {
    // The shortest digits that read back as the same value, padded with zeros
    // (2065.2 is written 0.20652000000000000D+04); rounded when there are more.
    char buf[400];
    auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(v), std::chars_format::scientific);
    std::string s(buf, r.ptr);
    if (static_cast<int>(s.find('e')) - (s.find('.') == std::string::npos ? 0 : 1) > decimals) {
      std::snprintf(buf, sizeof buf, "%.*e", decimals - 1, std::fabs(v));
      s = buf;
    }
    std::size_t e = s.find('e');
    for (std::size_t i = 0; i < e; ++i)
      if (isDigit(s[i])) digits += s[i];
    digits.resize(static_cast<std::size_t>(decimals), '0');
    const char* at = s.data() + e + 1;
    if (*at == '+') ++at;
    std::from_chars(at, s.data() + s.size(), exponent);
    exponent += 1;
  }
  long a = std::labs(exponent);
  if (a > 999) return {};
  char exp[16];
  if (a <= 99)
    std::snprintf(exp, sizeof exp, "%c%c%02ld", letter, exponent < 0 ? '-' : '+', a);
  else
    std::snprintf(exp, sizeof exp, "%c%03ld", exponent < 0 ? '-' : '+', a);
  return sign + "0." + digits + exp;
}

}  // namespace

std::string writeNumberField(double v, const FieldSlot& slot) {
  const std::string stars(static_cast<std::size_t>(slot.width), '*');
  if (!std::isfinite(v)) return stars;
  switch (slot.edit) {
    case Edit::F:
      return fit(fixed(v, slot.decimals), slot.width);
    case Edit::E:
    case Edit::D: {
      std::string s = exponential(v, slot.decimals, slot.edit == Edit::E ? 'E' : 'D');
      return s.empty() ? stars : fit(s, slot.width);
    }
    case Edit::I:
      if (std::fabs(v) > 9e17) return stars;
      return fit(std::to_string(std::llround(v)), slot.width);
    default:
      return std::string(static_cast<std::size_t>(slot.width), ' ');
  }
}

std::string writeTextField(std::string_view text, int width) {
  std::string v = padded(text, kTextWidth);
  auto w = static_cast<std::size_t>(width);
  if (w >= kTextWidth) return std::string(w - kTextWidth, ' ') + v;
  return v.substr(0, w);
}

}  // namespace korvane::engine
