// Character codes in and out of text: a code point appended as UTF-8, and the
// value of a hexadecimal digit.
#pragma once

#include <string>

namespace korvane::cp {

// Appends the UTF-8 form of code point `u`.
void appendUtf8(std::string& out, char32_t u);

// 0 to 15 for "0"-"9", "a"-"f" and "A"-"F"; -1 for any other character.
inline int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace korvane::cp
