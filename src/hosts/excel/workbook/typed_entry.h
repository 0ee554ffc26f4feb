// How Excel stores what a user types into a cell: a leading "=" makes a
// formula, a number is kept as a number, a leading apostrophe keeps the rest
// as text, anything else is text, and nothing clears the cell. Numbers use
// "." as their decimal sign, as every number of the input language does.
#pragma once

#include <string>
#include <string_view>

namespace korvane::hosts::workbook {

struct TypedEntry {
  enum class Kind { Empty, Formula, Number, Text } kind = Kind::Empty;
  std::string text;  // the formula without its "=", or the text
  double number = 0;
};

// Throws WorkbookError (Refused) for what Excel would not take: a lone "=",
// text longer than a cell holds, control characters.
TypedEntry typedEntry(std::string_view typed);

}  // namespace korvane::hosts::workbook
