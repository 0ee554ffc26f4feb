#include "hosts/excel/workbook/typed_entry.h"

#include <cctype>
#include <charconv>

#include "hosts/excel.h"

namespace korvane::hosts::workbook {
namespace {

// A plain decimal number, with optional sign, fraction and exponent, blanks
// around it allowed.
bool parseNumber(std::string_view s, double& value) {
  while (!s.empty() && s.front() == ' ') s.remove_prefix(1);
  while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
  if (!s.empty() && s.front() == '+') s.remove_prefix(1);
  if (s.empty()) return false;
  std::size_t i = s.front() == '-' ? 1 : 0;
  std::size_t digits = 0;
  while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && std::isdigit(static_cast<unsigned char>(s[i]))) ++i, ++digits;
  }
  if (digits == 0) return false;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    if (j == s.size() || !std::isdigit(static_cast<unsigned char>(s[j]))) return false;
    while (j < s.size() && std::isdigit(static_cast<unsigned char>(s[j]))) ++j;
    i = j;
  }
  if (i != s.size()) return false;
  const auto r = std::from_chars(s.data(), s.data() + s.size(), value);
  return r.ec == std::errc() && r.ptr == s.data() + s.size();
}

}  // namespace

TypedEntry typedEntry(std::string_view typed) {
  using Reason = WorkbookError::Reason;
  TypedEntry e;
  if (typed.size() > kExcelCellChars)
    throw WorkbookError(Reason::Refused, std::string(typed.substr(0, 40)) + "...");
  for (unsigned char ch : typed)
    if (ch < 0x20 && ch != '\t' && ch != '\n' && ch != '\r')
      throw WorkbookError(Reason::Refused, std::string(typed));
  if (typed.empty()) return e;
  if (typed.front() == '=') {
    if (typed.size() == 1) throw WorkbookError(Reason::Refused, "=");
    e.kind = TypedEntry::Kind::Formula;
    e.text = std::string(typed.substr(1));
    return e;
  }
  if (typed.front() == '\'') {
    e.kind = TypedEntry::Kind::Text;
    e.text = std::string(typed.substr(1));
    return e;
  }
  if (parseNumber(typed, e.number)) {
    e.kind = TypedEntry::Kind::Number;
    return e;
  }
  e.kind = TypedEntry::Kind::Text;
  e.text = std::string(typed);
  return e;
}

}  // namespace korvane::hosts::workbook
