#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "base/conversions.h"
#include "support/vectors.h"

using namespace korvane::conv;

TEST(ConvLike, Vectors) {
  for (const auto& v : korvane::test::readVectors("like.txt", 3))
    EXPECT_EQ(Like(v.fields[0], v.fields[1]), v.fields[2] == "1")
        << v.where << ": \"" << v.fields[0] << "\" Like \"" << v.fields[1] << '"';
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
