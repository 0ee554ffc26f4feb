#include "hosts/excel/workbook/cell_reference.h"

#include <cctype>

#include "hosts/excel.h"

namespace korvane::hosts::workbook {
namespace {

// Reads "$AB$12" at `at`; advances past it.
std::optional<CellAddress> readCell(std::string_view s, std::size_t& at) {
  CellAddress c;
  if (at < s.size() && s[at] == '$') ++at;
  std::size_t letters = 0;
  while (at < s.size() && std::isalpha(static_cast<unsigned char>(s[at]))) {
    if (++letters > 3) return std::nullopt;
    c.column = c.column * 26 + (std::toupper(static_cast<unsigned char>(s[at])) - 'A' + 1);
    ++at;
  }
  if (letters == 0) return std::nullopt;
  if (at < s.size() && s[at] == '$') ++at;
  std::size_t digits = 0;
  while (at < s.size() && std::isdigit(static_cast<unsigned char>(s[at]))) {
    if (++digits > 7) return std::nullopt;
    c.row = c.row * 10 + (s[at] - '0');
    ++at;
  }
  if (digits == 0 || c.row < 1 || c.row > kExcelRows || c.column > kExcelColumns)
    return std::nullopt;
  return c;
}

}  // namespace

std::optional<CellReference> parseReference(std::string_view text) {
  CellReference ref;
  const std::size_t bang = text.rfind('!');
  if (bang != std::string_view::npos) {
    std::string_view sheet = text.substr(0, bang);
    if (sheet.size() >= 2 && sheet.front() == '\'' && sheet.back() == '\'')
      sheet = sheet.substr(1, sheet.size() - 2);
    if (sheet.empty()) return std::nullopt;
    ref.sheet = std::string(sheet);
    text = text.substr(bang + 1);
  }
  std::size_t at = 0;
  std::optional<CellAddress> first = readCell(text, at);
  if (!first) return std::nullopt;
  if (at < text.size()) {
    if (text[at] != ':') return std::nullopt;
    ++at;
    if (!readCell(text, at) || at != text.size()) return std::nullopt;
  }
  ref.cell = *first;
  return ref;
}

std::string addressText(CellAddress cell) {
  std::string letters;
  for (std::int32_t c = cell.column; c > 0; c = (c - 1) / 26)
    letters.insert(letters.begin(), static_cast<char>('A' + (c - 1) % 26));
  return letters + std::to_string(cell.row);
}

std::int32_t columnOf(std::string_view address) {
  std::int32_t column = 0;
  for (char ch : address) {
    if (!std::isalpha(static_cast<unsigned char>(ch))) break;
    column = column * 26 + (std::toupper(static_cast<unsigned char>(ch)) - 'A' + 1);
    if (column > kExcelColumns) return 0;  // no column of a sheet; stops before overflow
  }
  return column;
}

}  // namespace korvane::hosts::workbook
