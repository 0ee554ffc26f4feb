#include "hosts/excel/workbook/escaped_text.h"

#include <cstdint>
#include <cstdio>

#include "base/char_codes.h"

namespace korvane::hosts::workbook {
namespace {

// The code of an escape "_xHHHH_" at `at`, or -1 when there is none.
long escapeAt(std::string_view s, std::size_t at) {
  if (at + 7 > s.size() || s[at] != '_' || s[at + 1] != 'x' || s[at + 6] != '_') return -1;
  long code = 0;
  for (std::size_t k = at + 2; k < at + 6; ++k) {
    const int d = cp::hexDigit(s[k]);
    if (d < 0) return -1;
    code = code * 16 + d;
  }
  return code;
}

}  // namespace

std::string unescapeCellText(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t at = 0; at < s.size();) {
    const long code = escapeAt(s, at);
    if (code < 0) {
      out += s[at++];
      continue;
    }
    at += 7;
    if (code >= 0xD800 && code < 0xDC00) {  // a pair of escapes for one character
      const long low = escapeAt(s, at);
      if (low >= 0xDC00 && low < 0xE000) {
        cp::appendUtf8(out, 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00));
        at += 7;
        continue;
      }
    }
    if (code >= 0xD800 && code < 0xE000)
      cp::appendUtf8(out, 0xFFFD);  // half a pair: no character
    else
      cp::appendUtf8(out, static_cast<std::uint32_t>(code));
  }
  return out;
}

std::string escapeCellText(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  for (std::size_t at = 0; at < s.size(); ++at) {
    const auto c = static_cast<unsigned char>(s[at]);
    if (c == '_' && escapeAt(s, at) >= 0) {
      out += "_x005F_";
    } else if (c < 0x20 && c != '\t' && c != '\n') {
      char buf[8];
      std::snprintf(buf, sizeof buf, "_x%04X_", c);
      out += buf;
    } else {
      out += static_cast<char>(c);
    }
  }
  return out;
}

}  // namespace korvane::hosts::workbook
