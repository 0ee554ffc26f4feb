// A1-style cell references as a user writes them: "B3", "$b$3", "A1:C2" (a
// range: its first cell), optionally after a sheet name ("Data!B3").
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvane::hosts::workbook {

struct CellAddress {
  std::int32_t row = 0;     // 1-based
  std::int32_t column = 0;  // 1-based
};

struct CellReference {
  std::string sheet;  // "" when the reference names none
  CellAddress cell;
};

// Nothing when the text is no reference inside Excel's sheet limits.
std::optional<CellReference> parseReference(std::string_view text);
// "B3" for row 3, column 2.
std::string addressText(CellAddress cell);
// Column letters of a "r" attribute ("AB12") to its column; 0 when none or
// beyond the last column of a sheet.
std::int32_t columnOf(std::string_view address);

}  // namespace korvane::hosts::workbook
