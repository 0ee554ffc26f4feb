// Cell texts in a workbook's XML: characters that XML cannot carry, or would
// change (a carriage return becomes a line feed when read), are written as
// "_xHHHH_" with the UTF-16 code in hex; a literal "_xHHHH_" in a text has
// its underscore written as "_x005F_".
#pragma once

#include <string>
#include <string_view>

namespace korvane::hosts::workbook {

// The text as stored -> the text as the cell holds it (both UTF-8).
std::string unescapeCellText(std::string_view stored);
// The text as the cell holds it -> the text to store (both UTF-8).
std::string escapeCellText(std::string_view text);

}  // namespace korvane::hosts::workbook
