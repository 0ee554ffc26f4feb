#include "compiler/field_scanner.h"

#include <array>

namespace korvane {

std::string nextField(std::string_view text, std::size_t& pos) {
  return std::string(nextFieldView(text, pos));
}

namespace {

// The characters that can end or nest a field; every other one is skipped.
constexpr std::array<bool, 256> kFieldSyntax = [] {
  std::array<bool, 256> t{};
  for (unsigned char k : {'"', '(', ')', ','}) t[k] = true;
  return t;
}();

bool isFieldSyntax(char c) { return kFieldSyntax[static_cast<unsigned char>(c)]; }

}  // namespace

std::string_view nextFieldView(std::string_view text, std::size_t& pos) {
  if (pos >= text.size()) {
    pos = text.size() + 1;
    return {};
  }
  bool inQuote = false;
  int depth = 0;
  for (std::size_t i = pos; i < text.size(); ++i) {
    while (i < text.size() && !isFieldSyntax(text[i])) ++i;  // the plain run, quickly
    if (i == text.size()) break;
    char c = text[i];
    if (c == '"') {
      inQuote = !inQuote;
    } else if (!inQuote) {
      if (c == '(') {
        ++depth;
      } else if (c == ')') {
        if (depth > 0) --depth;
      } else if (c == ',' && depth == 0) {
        std::string_view field = text.substr(pos, i - pos);
        pos = i + 1;
        return field;
      }
    }
  }
  std::string_view field = text.substr(pos);
  pos = text.size() + 1;
  return field;
}

std::size_t matchingParen(std::string_view text, std::size_t close) {
  int depth = 0;
  for (std::size_t i = close + 1; i-- > 0;) {
    if (text[i] == ')') {
      ++depth;
    } else if (text[i] == '(') {
      if (--depth == 0) return i;
    }
  }
  return std::string_view::npos;
}

bool inRange(long pos, long low, long high, std::string_view kind) {
  if (kind == "[]") return low <= pos && pos <= high;
  if (kind == "(]") return low < pos && pos <= high;
  if (kind == "[)") return low <= pos && pos < high;
  return low < pos && pos < high;
}

}  // namespace korvane
