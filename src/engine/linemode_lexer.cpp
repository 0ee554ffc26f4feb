#include "engine/linemode_lexer.h"

#include <charconv>
#include <cmath>

#include "base/codepage.h"
#include "base/text.h"
#include "engine/engine_error.h"
#include "engine/engine_limits.h"
#include "engine/fortran_format.h"

namespace korvane::engine {
namespace {

bool isLetter(char c) {
  unsigned char u = static_cast<unsigned char>(c);
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || u >= 0xC0;
}
bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

LineKind classifyLine(std::string_view line) {
  if (line.find_first_not_of(' ') == std::string_view::npos) return LineKind::Blank;
  if (line.substr(0, 3) == "   " || line.substr(0, 3) == "***") return LineKind::Comment;
  return LineKind::Record;
}

bool startsWithLetter(std::string_view record) { return !record.empty() && isLetter(record[0]); }

std::string_view majorWord(std::string_view record) {
  std::size_t n = 0;
  while (n < record.size() && isLetter(record[n])) ++n;
  if (n < 4 || (n < record.size() && record[n] != ',' && record[n] != ' ')) return {};
  return record.substr(0, n);
}

int minorNumber(std::string_view record) {
  if (record.size() < 3 || !isDigit(record[0]) || !isDigit(record[1]) || !isDigit(record[2]))
    return -1;
  int number = (record[0] - '0') * 100 + (record[1] - '0') * 10 + (record[2] - '0');
  if (record.size() == 3) return number;
  char c = record[3];
  if (c == ',' || c == ' ') return number;
  if (number == 1 && cp::startsWithIgnoreCase(record.substr(3), "FORMAT")) return number;
  return -1;
}

std::string recordKey(std::string_view record) {
  if (minorNumber(record) >= 0) return std::string(record.substr(0, 3));
  std::string_view word = majorWord(record);
  return word.empty() ? std::string() : cp::lower(word.substr(0, 4));
}

std::string cardKey(std::string_view record) {
  if (record.size() < 4 || !isLetter(record[3])) return {};
  for (std::size_t i = 0; i < 3; ++i)
    if (!isDigit(record[i])) return {};
  return std::string(record.substr(0, 3));
}

Fields::Fields(std::string_view record) {
  int position = 1;
  std::size_t start = 0;
  for (;;) {
    std::size_t comma = record.find(',', start);
    std::string_view piece = record.substr(
        start, comma == std::string_view::npos ? std::string_view::npos : comma - start);
    // "N=value" jumps to field N.
    std::size_t eq = piece.find('=');
    if (position > 1 && eq != std::string_view::npos) {
      std::string n = text::trim(piece.substr(0, eq));
      bool digits = !n.empty() && n.size() <= 3;
      for (char c : n) digits = digits && isDigit(c);
      if (!digits)
        throw EngineError("'" + excerpt(piece) + "' is not a field position of the form N=value");
      int target = 0;
      std::from_chars(n.data(), n.data() + n.size(), target);
      if (target < 2) throw EngineError("field position " + n + "= is below 2");
      position = target;
      piece = piece.substr(eq + 1);
    }
    fields_[position] = std::string(piece);
    ++position;
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
}

bool Fields::has(int n) const {
  auto it = fields_.find(n);
  return it != fields_.end() && it->second.find_first_not_of(' ') != std::string::npos;
}

std::string_view Fields::raw(int n) const {
  auto it = fields_.find(n);
  return it == fields_.end() ? std::string_view() : std::string_view(it->second);
}

std::optional<double> Fields::number(int n) const {
  if (!has(n)) return std::nullopt;
  std::string t = text::trim(raw(n));
  double v = 0;
  if (t.find(' ') != std::string::npos || !parseFortranNumber(t, 0, v))
    throw EngineError("field " + std::to_string(n) + " ('" + excerpt(t) + "') is not a number");
  return v;
}

std::optional<long> Fields::integer(int n) const {
  std::optional<double> v = number(n);
  if (!v) return std::nullopt;
  if (*v != std::floor(*v) || std::fabs(*v) > 2e9)
    throw EngineError("field " + std::to_string(n) + " ('" + excerpt(text::trim(raw(n))) +
                      "') is not a whole number");
  return static_cast<long>(*v);
}

}  // namespace korvane::engine
