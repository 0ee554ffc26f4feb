// Like: classic BASIC wildcard matching with binary (byte-value, case-sensitive) comparison.
#include <bitset>
#include <vector>

#include "base/conv_detail.h"

namespace korvane::conv {
namespace {

// One pattern element. Every element except a star matches exactly one byte.
struct Element {
  enum Kind { Star, OneOf } kind;
  std::bitset<256> set;  // the bytes an OneOf element accepts
};

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }

[[noreturn]] void invalidPattern() {
  detail::fail(ConvErrc::InvalidPattern, "Invalid pattern string");
}

// A bracket list starting after its "[": "!" first negates; "-" first or last is literal;
// "a-z" is a range whose bounds must ascend. "[]" matches no character at all (the element is
// dropped, so it matches the empty string); "[!]" therefore matches any one character.
// Returns the position after the closing "]", and whether the list was empty.
std::size_t parseList(std::string_view p, std::size_t i, std::bitset<256>& set, bool& empty) {
  bool negate = i < p.size() && p[i] == '!';
  if (negate) ++i;
  std::size_t start = i;
  while (i < p.size() && p[i] != ']') {
    unsigned char lo = byteOf(p[i]);
    if (i + 2 < p.size() && p[i + 1] == '-' && p[i + 2] != ']') {
      unsigned char hi = byteOf(p[i + 2]);
      if (hi < lo) invalidPattern();
      for (unsigned c = lo; c <= hi; ++c) set.set(c);
      i += 3;
    } else {
      set.set(lo);
      ++i;
    }
  }
  if (i >= p.size()) invalidPattern();  // "[" without "]"
  empty = i == start && !negate;
  if (negate) set.flip();
  return i + 1;
}

std::vector<Element> compile(std::string_view p) {
  std::vector<Element> out;
  for (std::size_t i = 0; i < p.size();) {
    Element e{Element::OneOf, {}};
    char c = p[i];
    if (c == '*') {
      ++i;
      if (!out.empty() && out.back().kind == Element::Star) continue;  // "**" is one star
      e.kind = Element::Star;
    } else if (c == '?') {
      e.set.set();
      ++i;
    } else if (c == '#') {
      for (char d = '0'; d <= '9'; ++d) e.set.set(byteOf(d));
      ++i;
    } else if (c == '[') {
      bool empty = false;
      i = parseList(p, i + 1, e.set, empty);
      if (empty) continue;
    } else {
      e.set.set(byteOf(c));
      ++i;
    }
    out.push_back(e);
  }
  return out;
}

}  // namespace

// Anchored at both ends. Because every element but "*" takes exactly one byte, returning to
// the most recent star on a mismatch is enough: the match takes at most
// length(text) x length(pattern) steps, whatever the number of stars.
bool Like(std::string_view text, std::string_view pattern) {
  const std::vector<Element> pat = compile(pattern);
  std::size_t t = 0, p = 0;
  std::size_t starP = std::string_view::npos, starT = 0;
  while (t < text.size()) {
    if (p < pat.size() && pat[p].kind == Element::Star) {
      starP = p++;
      starT = t;
    } else if (p < pat.size() && pat[p].set.test(byteOf(text[t]))) {
      ++p;
      ++t;
    } else if (starP != std::string_view::npos) {
      p = starP + 1;
      t = ++starT;
    } else {
      return false;
    }
  }
  while (p < pat.size() && pat[p].kind == Element::Star) ++p;
  return p == pat.size();
}

}  // namespace korvane::conv
