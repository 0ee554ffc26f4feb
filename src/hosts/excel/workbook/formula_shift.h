// A formula moved to another cell, as Excel moves it when it fills or copies:
// relative references follow by the rows and columns moved, those anchored
// with "$" stay. Excel stores a formula filled over a range once, in its
// first cell, and the others take it moved by their distance from there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane::hosts::workbook {

// References of cells ("B3", "$B3", "Data!B$3"), of whole columns ("A:C")
// and of whole rows ("2:4") move; one moved off the sheet becomes "#REF!".
std::string shiftFormula(std::string_view formula, std::int32_t rows, std::int32_t columns);

}  // namespace korvane::hosts::workbook
