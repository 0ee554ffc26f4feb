#include "hosts/excel/workbook/formula_shift.h"

#include <algorithm>
#include <cctype>

#include "hosts/excel.h"
#include "hosts/excel/workbook/cell_reference.h"

namespace korvane::hosts::workbook {
namespace {

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }
bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
// Characters that continue a name, so that a reference cannot begin or end there.
bool inName(char c) {
  return isLetter(c) || isDigit(c) || c == '_' || c == '.' || c == '\\' ||
         static_cast<unsigned char>(c) >= 0x80;
}

// One part of a reference: a column ("$AB") or a row ("$12").
struct Part {
  bool anchored = false;
  std::int32_t value = 0;
  std::size_t end = 0;  // where the text after it begins
};

bool columnPart(std::string_view s, std::size_t at, Part& p) {
  p.anchored = at < s.size() && s[at] == '$';
  std::size_t k = at + (p.anchored ? 1 : 0), n = 0;
  p.value = 0;
  while (k < s.size() && isLetter(s[k]) && n < 4) {
    p.value = p.value * 26 + (std::toupper(static_cast<unsigned char>(s[k])) - 'A' + 1);
    ++k, ++n;
  }
  p.end = k;
  return n >= 1 && n <= 3 && p.value <= kExcelColumns;
}

bool rowPart(std::string_view s, std::size_t at, Part& p) {
  p.anchored = at < s.size() && s[at] == '$';
  std::size_t k = at + (p.anchored ? 1 : 0), n = 0;
  p.value = 0;
  while (k < s.size() && isDigit(s[k]) && n < 8) p.value = p.value * 10 + (s[k++] - '0'), ++n;
  p.end = k;
  return n >= 1 && p.value >= 1 && p.value <= kExcelRows;
}

// The part moved, or false when it leaves the sheet.
bool move(Part& p, std::int32_t by, std::int32_t limit) {
  if (p.anchored) return true;
  p.value += by;
  return p.value >= 1 && p.value <= limit;
}

std::string columnText(const Part& p) {
  const std::string a = addressText({1, p.value});
  return (p.anchored ? "$" : "") + a.substr(0, a.size() - 1);
}
std::string rowText(const Part& p) { return (p.anchored ? "$" : "") + std::to_string(p.value); }

bool endsReference(std::string_view s, std::size_t at) {
  return at >= s.size() || (!inName(s[at]) && s[at] != '(' && s[at] != '!' && s[at] != '$');
}

// A reference at `at`: its moved text in `out` and its end, or 0 when none
// begins there.
std::size_t reference(std::string_view s, std::size_t at, std::int32_t rows, std::int32_t columns,
                      std::string& out) {
  Part c, r, c2, r2;
  if (columnPart(s, at, c) && rowPart(s, c.end, r) && endsReference(s, r.end)) {
    const bool ok = move(c, columns, kExcelColumns) && move(r, rows, kExcelRows);
    out = ok ? columnText(c) + rowText(r) : "#REF!";
    return r.end;
  }
  if (columnPart(s, at, c) && c.end < s.size() && s[c.end] == ':' && columnPart(s, c.end + 1, c2) &&
      endsReference(s, c2.end)) {
    const bool ok = move(c, columns, kExcelColumns) && move(c2, columns, kExcelColumns);
    out = ok ? columnText(c) + ":" + columnText(c2) : "#REF!";
    return c2.end;
  }
  if (rowPart(s, at, r) && r.end < s.size() && s[r.end] == ':' && rowPart(s, r.end + 1, r2) &&
      endsReference(s, r2.end)) {
    const bool ok = move(r, rows, kExcelRows) && move(r2, rows, kExcelRows);
    out = ok ? rowText(r) + ":" + rowText(r2) : "#REF!";
    return r2.end;
  }
  return 0;
}

}  // namespace

std::string shiftFormula(std::string_view s, std::int32_t rows, std::int32_t columns) {
  std::string out;
  for (std::size_t at = 0; at < s.size();) {
    const char c = s[at];
    if (c == '"' || c == '\'') {  // a text, or a quoted sheet name: as it stands
      std::size_t end = at + 1;
      while (end < s.size() && !(s[end] == c && (end + 1 >= s.size() || s[end + 1] != c)))
        end += s[end] == c ? 2 : 1;
      end = std::min(end + 1, s.size());
      out.append(s.substr(at, end - at));
      at = end;
      continue;
    }
    if (c == '[') {  // a table's column or another workbook: names, no references
      const std::size_t close = s.find(']', at);
      const std::size_t end = close == std::string_view::npos ? s.size() : close + 1;
      out.append(s.substr(at, end - at));
      at = end;
      continue;
    }
    std::string moved;
    const bool starts = at == 0 || !inName(s[at - 1]);
    if (starts) {
      if (const std::size_t end = reference(s, at, rows, columns, moved)) {
        out += moved;
        at = end;
        continue;
      }
    }
    // Anything else up to the end of its name, so that no reference is found
    // inside a function's or a defined name ("LOG10", "Rate_1").
    std::size_t end = at + 1;
    if (inName(c) || c == '$')
      while (end < s.size() && (inName(s[end]) || s[end] == '$')) ++end;
    out.append(s.substr(at, end - at));
    at = end;
  }
  return out;
}

}  // namespace korvane::hosts::workbook
