// Text inside Korvane is kept as the bytes the users' files hold: the Windows
// ANSI code page, Windows-1250 (Central European) by default. Case rules work
// on those bytes; conversion to UTF-8 happens only at the edges (terminal,
// window, files that start with a UTF-8 byte-order mark).
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace korvane::cp {

namespace detail {
// Case pairs of Windows-1250, built by the compiler: a case change is one
// table read, inlined where it is used.
struct CaseTables {
  std::array<unsigned char, 256> lower{};
  std::array<unsigned char, 256> upper{};
  constexpr CaseTables() {
    for (int i = 0; i < 256; ++i) lower[i] = upper[i] = static_cast<unsigned char>(i);
    auto pair = [&](int up, int low) {
      lower[up] = static_cast<unsigned char>(low);
      upper[low] = static_cast<unsigned char>(up);
    };
    for (int c = 'A'; c <= 'Z'; ++c) pair(c, c + 32);
    for (int c : {0x8A, 0x8C, 0x8D, 0x8E, 0x8F}) pair(c, c + 0x10);
    pair(0xA3, 0xB3);
    pair(0xA5, 0xB9);
    pair(0xAA, 0xBA);
    pair(0xAF, 0xBF);
    pair(0xBC, 0xBE);
    for (int c = 0xC0; c <= 0xDE; ++c)
      if (c != 0xD7) pair(c, c + 0x20);
  }
};
inline constexpr CaseTables kCaseTables;
}  // namespace detail

inline char toLower(char c) {
  return static_cast<char>(detail::kCaseTables.lower[static_cast<unsigned char>(c)]);
}
inline char toUpper(char c) {
  return static_cast<char>(detail::kCaseTables.upper[static_cast<unsigned char>(c)]);
}
std::string lower(std::string_view s);
std::string upper(std::string_view s);
bool equalsIgnoreCase(std::string_view a, std::string_view b);
bool startsWithIgnoreCase(std::string_view s, std::string_view prefix);
// Position of needle in hay ignoring case, or npos.
std::size_t findIgnoreCase(std::string_view hay, std::string_view needle, std::size_t from = 0);

// Windows-1250 bytes to UTF-8; bytes with no character map to U+FFFD.
std::string toUtf8(std::string_view cp1250);
// UTF-8 to Windows-1250; characters outside the code page become '?'.
// Invalid UTF-8 sequences are taken byte by byte, as they stand.
std::string fromUtf8(std::string_view utf8);
// The same, with `firstLost` set to where (1-based, in the result) the first
// character the code page cannot hold became "?"; 0 when none did.
std::string fromUtf8(std::string_view utf8, std::size_t& firstLost);
// UTF-16LE bytes (without their byte-order mark) to Windows-1250.
std::string fromUtf16le(std::string_view bytes);
// UTF-16LE bytes (without their byte-order mark) to UTF-8 and back, losslessly
// (surrogate pairs joined; a lone surrogate becomes U+FFFD).
std::string utf16leToUtf8(std::string_view bytes);
std::string utf8ToUtf16le(std::string_view utf8);
// True when the text is valid UTF-8 and holds at least one non-ASCII character.
bool looksLikeUtf8(std::string_view s);

// looksLikeUtf8 over a text that comes in pieces (a file read as a stream): a
// character may be split between two pieces.
class Utf8Scan {
 public:
  // Returns false as soon as the text cannot be UTF-8.
  bool feed(std::string_view piece);
  // The answer once every piece has been fed.
  bool looksLikeUtf8() const { return valid_ && pending_.empty() && nonAscii_; }

 private:
  std::string pending_;  // the start of a character that the next piece completes
  bool valid_ = true, nonAscii_ = false;
};

}  // namespace korvane::cp
