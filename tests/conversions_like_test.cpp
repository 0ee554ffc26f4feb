#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "base/conversions.h"

using namespace korvane::conv;

namespace {
struct LikeCase {
  const char* text;
  const char* pattern;
  bool expected;
};
}  // namespace

TEST(ConvLike, BinaryComparison) {
  const LikeCase cases[] = {
      {"aBBBa", "a*a", true},
      {"F", "[A-Z]", true},
      {"F", "[!A-Z]", false},
      {"a2a", "a#a", true},
      {"aM5b", "a[L-P]#[!c-e]", true},
      {"BAT123khg", "B?T*", true},
      {"CAT123khg", "B?T*", false},
      {"ab", "a*b", true},
      {"a*b", "a [*]b", false},
      {"axxxxxb", "a [*]b", false},
      {"a [xyz", "a [[]*", true},
      {"F", "f", false},
      {"F", "FFF", false},
      {"", "", true},
      {"", "*", true},
      {"", "**", true},
      {"a", "", false},
      {"", "?", false},
      {"-", "[a-]", true},
      {"-", "[-a]", true},
      {"b", "[a-]", false},
      {"?", "[?]", true},
      {"x", "[?]", false},
      {"ab", "a[]b", true},
      {"x", "[!]", true},
      {"!", "!", true},
      {"a]", "a]", true},
      {"X", "[A-CX-Z]", true},
      {"M", "[A-CX-Z]", false},
      {"abc", "abc*", true},
      {"abcabd", "*abd", true},
      {"mississippi", "m*iss*ppi", true},
      {"mississippi", "m*iss*pi?", false},
      {"a", "#", false},
      {"\xE1", "[\xC0-\xFF]", true},  // accented letters compare by byte value
      {"\xE1", "[a-z]", false},
      {"\xE1", "\xC1", false},  // no case folding
      {"12a", "##[a-z]", true},
      {"ab", "a", false},
      {"ab", "*a", false},
  };
  for (const auto& c : cases)
    EXPECT_EQ(Like(c.text, c.pattern), c.expected)
        << '"' << c.text << "\" Like \"" << c.pattern << '"';
}

TEST(ConvLike, InvalidPatterns) {
  for (const char* pattern : {"a [*", "[", "[abc", "x[!", "[Z-A]", "*[b-a]*"}) {
    try {
      Like("a [xyz", pattern);
      ADD_FAILURE() << pattern << ": no error";
    } catch (const ConversionError& e) {
      EXPECT_EQ(e.code(), ConvErrc::InvalidPattern) << pattern;
    }
  }
}

TEST(ConvLike, ManyStarsStayFast) {
  const std::string text(200000, 'a');
  auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(Like(text, "*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(Like(text + "b", "*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(Like(text, "*" + std::string(50, '?')));
  auto elapsed = std::chrono::steady_clock::now() - start;
  EXPECT_LT(std::chrono::duration_cast<std::chrono::seconds>(elapsed).count(), 5);
}
