#include "base/codepage.h"

#include <array>
#include <cstdint>
#include <cstring>

#include "base/char_codes.h"

namespace korvane::cp {
namespace {

// The first index from `i` on that holds a byte of 0x80 or more (or the size):
// plain ASCII is skipped eight bytes at a time.
std::size_t asciiEnd(std::string_view s, std::size_t i) {
  for (std::uint64_t w; i + 8 <= s.size(); i += 8) {
    std::memcpy(&w, s.data() + i, 8);
    if (w & 0x8080808080808080ULL) break;
  }
  while (i < s.size() && static_cast<unsigned char>(s[i]) < 0x80) ++i;
  return i;
}

// clang-format off
// Unicode code points of Windows-1250 bytes 0x80..0xFF (0 = no character).
constexpr std::array<char16_t, 128> kHigh = {
    0x20AC, 0x0000, 0x201A, 0x0000, 0x201E, 0x2026, 0x2020, 0x2021,
    0x0000, 0x2030, 0x0160, 0x2039, 0x015A, 0x0164, 0x017D, 0x0179,
    0x0000, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x0000, 0x2122, 0x0161, 0x203A, 0x015B, 0x0165, 0x017E, 0x017A,
    0x00A0, 0x02C7, 0x02D8, 0x0141, 0x00A4, 0x0104, 0x00A6, 0x00A7,
    0x00A8, 0x00A9, 0x015E, 0x00AB, 0x00AC, 0x00AD, 0x00AE, 0x017B,
    0x00B0, 0x00B1, 0x02DB, 0x0142, 0x00B4, 0x00B5, 0x00B6, 0x00B7,
    0x00B8, 0x0105, 0x015F, 0x00BB, 0x013D, 0x02DD, 0x013E, 0x017C,
    0x0154, 0x00C1, 0x00C2, 0x0102, 0x00C4, 0x0139, 0x0106, 0x00C7,
    0x010C, 0x00C9, 0x0118, 0x00CB, 0x011A, 0x00CD, 0x00CE, 0x010E,
    0x0110, 0x0143, 0x0147, 0x00D3, 0x00D4, 0x0150, 0x00D6, 0x00D7,
    0x0158, 0x016E, 0x00DA, 0x0170, 0x00DC, 0x00DD, 0x0162, 0x00DF,
    0x0155, 0x00E1, 0x00E2, 0x0103, 0x00E4, 0x013A, 0x0107, 0x00E7,
    0x010D, 0x00E9, 0x0119, 0x00EB, 0x011B, 0x00ED, 0x00EE, 0x010F,
    0x0111, 0x0144, 0x0148, 0x00F3, 0x00F4, 0x0151, 0x00F6, 0x00F7,
    0x0159, 0x016F, 0x00FA, 0x0171, 0x00FC, 0x00FD, 0x0163, 0x02D9,
};
// clang-format on

// Decodes one UTF-8 sequence at s[i]; returns its length, 0 when invalid.
std::size_t decodeUtf8(std::string_view s, std::size_t i, char32_t& u) {
  auto b = static_cast<unsigned char>(s[i]);
  std::size_t n = b < 0x80 ? 1 : (b >> 5) == 6 ? 2 : (b >> 4) == 14 ? 3 : (b >> 3) == 30 ? 4 : 0;
  if (n == 0 || i + n > s.size()) return 0;
  u = n == 1 ? b : n == 2 ? (b & 0x1F) : n == 3 ? (b & 0x0F) : (b & 0x07);
  for (std::size_t k = 1; k < n; ++k) {
    auto c = static_cast<unsigned char>(s[i + k]);
    if ((c & 0xC0) != 0x80) return 0;
    u = (u << 6) | (c & 0x3F);
  }
  return n;
}

}  // namespace

void appendUtf8(std::string& out, char32_t u) {
  if (u < 0x80) {
    out += static_cast<char>(u);
  } else if (u < 0x800) {
    out += static_cast<char>(0xC0 | (u >> 6));
    out += static_cast<char>(0x80 | (u & 0x3F));
  } else if (u < 0x10000) {
    out += static_cast<char>(0xE0 | (u >> 12));
    out += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (u & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (u >> 18));
    out += static_cast<char>(0x80 | ((u >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (u & 0x3F));
  }
}

std::string lower(std::string_view s) {
  std::string r(s);
  for (char& c : r) c = toLower(c);
  return r;
}

std::string upper(std::string_view s) {
  std::string r(s);
  for (char& c : r) c = toUpper(c);
  return r;
}

bool equalsIgnoreCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i)
    if (toLower(a[i]) != toLower(b[i])) return false;
  return true;
}

bool startsWithIgnoreCase(std::string_view s, std::string_view prefix) {
  return s.size() >= prefix.size() && equalsIgnoreCase(s.substr(0, prefix.size()), prefix);
}

std::size_t findIgnoreCase(std::string_view hay, std::string_view needle, std::size_t from) {
  if (needle.size() > hay.size()) return std::string_view::npos;
  for (std::size_t i = from; i + needle.size() <= hay.size(); ++i)
    if (equalsIgnoreCase(hay.substr(i, needle.size()), needle)) return i;
  return std::string_view::npos;
}

std::string toUtf8(std::string_view s) {
  std::string out;
  out.reserve(s.size() + s.size() / 8);
  for (char ch : s) {
    auto b = static_cast<unsigned char>(ch);
    if (b < 0x80) {
      out += ch;
    } else {
      char16_t u = kHigh[b - 0x80];
      appendUtf8(out, u ? u : 0xFFFD);
    }
  }
  return out;
}

std::string fromUtf8(std::string_view s) {
  std::size_t lost = 0;
  return fromUtf8(s, lost);
}

std::string fromUtf8(std::string_view s, std::size_t& firstLost) {
  firstLost = 0;
  std::string out;
  out.reserve(s.size());
  for (std::size_t i = 0; i < s.size();) {
    char32_t u = 0;
    std::size_t n = decodeUtf8(s, i, u);
    if (n == 0) {  // not UTF-8 here: keep the byte
      out += s[i++];
      continue;
    }
    i += n;
    if (u < 0x80) {
      out += static_cast<char>(u);
      continue;
    }
    char mapped = '?';
    for (std::size_t k = 0; k < kHigh.size(); ++k)
      if (kHigh[k] == u) {
        mapped = static_cast<char>(0x80 + k);
        break;
      }
    if (mapped == '?' && firstLost == 0) firstLost = out.size() + 1;
    out += mapped;
  }
  return out;
}

std::string utf16leToUtf8(std::string_view bytes) {
  auto unit = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]) |
                                 static_cast<unsigned char>(bytes[i + 1]) << 8);
  };
  std::string utf8;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    char32_t u = unit(i);
    if (u >= 0xD800 && u < 0xDC00 && i + 3 < bytes.size() && unit(i + 2) >= 0xDC00 &&
        unit(i + 2) < 0xE000) {
      u = 0x10000 + ((u - 0xD800) << 10) + (unit(i + 2) - 0xDC00);
      i += 2;
    } else if (u >= 0xD800 && u < 0xE000) {
      u = 0xFFFD;
    }
    appendUtf8(utf8, u);
  }
  return utf8;
}

bool Utf8Scan::feed(std::string_view piece) {
  if (!valid_) return false;
  std::string joined;  // only when the previous piece ended inside a character
  std::string_view data = piece;
  if (!pending_.empty()) {
    joined = pending_ + std::string(piece);
    pending_.clear();
    data = joined;
  }
  for (std::size_t i = asciiEnd(data, 0); i < data.size(); i = asciiEnd(data, i)) {
    char32_t u = 0;
    const std::size_t n = decodeUtf8(data, i, u);
    if (n == 0) {
      // Up to three bytes at the end may be a character cut by the piece's end.
      if (data.size() - i < 4 && static_cast<unsigned char>(data[i]) >= 0xC0) {
        pending_.assign(data.substr(i));
        return true;
      }
      valid_ = false;
      return false;
    }
    nonAscii_ = true;
    i += n;
  }
  return true;
}

std::string utf8ToUtf16le(std::string_view utf8) {
  std::string out;
  auto put = [&out](char32_t unit) {
    out += static_cast<char>(unit & 0xFF);
    out += static_cast<char>(unit >> 8);
  };
  for (std::size_t i = 0; i < utf8.size();) {
    char32_t u = 0;
    std::size_t n = decodeUtf8(utf8, i, u);
    if (n == 0) {  // a stray byte: taken as it stands
      u = static_cast<unsigned char>(utf8[i]);
      n = 1;
    }
    i += n;
    if (u >= 0x10000) {
      put(0xD800 + ((u - 0x10000) >> 10));
      put(0xDC00 + ((u - 0x10000) & 0x3FF));
    } else {
      put(u);
    }
  }
  return out;
}

std::string fromUtf16le(std::string_view bytes) { return fromUtf8(utf16leToUtf8(bytes)); }

bool looksLikeUtf8(std::string_view s) {
  bool nonAscii = false;
  for (std::size_t i = asciiEnd(s, 0); i < s.size(); i = asciiEnd(s, i)) {
    char32_t u = 0;
    std::size_t n = decodeUtf8(s, i, u);
    if (n == 0) return false;
    nonAscii = true;
    i += n;
  }
  return nonAscii;
}

}  // namespace korvane::cp
