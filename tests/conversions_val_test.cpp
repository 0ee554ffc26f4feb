#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/conversions.h"

using namespace korvane::conv;

namespace {

struct ValCase {
  const char* text;
  double expected;
};

void expectCode(ConvErrc code, auto&& call) {
  try {
    call();
    ADD_FAILURE() << "no ConversionError";
  } catch (const ConversionError& e) {
    EXPECT_EQ(e.code(), code) << e.what();
  }
}

}  // namespace

TEST(ConvVal, LeadingNumberOfText) {
  const ValCase cases[] = {
      {"2457", 2457},
      {" 2 45 7", 2457},
      {"24 and 57", 24},
      {"    1615 198th Street N.E.", 1615198},
      {"12.5abc", 12.5},
      {" 1 2", 12},
      {"12 34.5 6", 1234.56},
      {"1e3", 1000},
      {"1E-2", 0.01},
      {"1d2", 100},
      {"1 e 2", 100},
      {"1e", 1},
      {"1e+", 1},
      {"", 0},
      {"abc", 0},
      {"$5", 0},
      {"0x1A", 0},
      {".5", 0.5},
      {"-.5", -0.5},
      {"+7", 7},
      {"- 5", -5},
      {"1,000", 1},
      {"1.2.3", 1.2},
      {"--1", 0},
      {"\t\r\n42\n", 42},
      {"0.05", 0.05},
      {"1e2e3", 100},
      {"1e+-2", 1},
      {"50%", 50},
      {"1e-2%", 0},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.expected) << '"' << c.text << '"';
}

TEST(ConvVal, CorrectlyRoundedDigits) {
  EXPECT_EQ(Val("0.1"), 0.1);
  EXPECT_EQ(Val("3.14159265358979323846"), 3.141592653589793);
  EXPECT_EQ(Val("1.7976931348623157e308"), 1.7976931348623157e308);
  EXPECT_EQ(Val("4.9406564584124654E-324"), 4.9406564584124654E-324);
  EXPECT_EQ(Val("1e-400"), 0);
  EXPECT_EQ(Val("0e999999999999999999"), 0);
  EXPECT_TRUE(std::signbit(Val("-0")));
}

TEST(ConvVal, RadixLiterals) {
  const ValCase cases[] = {
      {"&HFFFF", -1},
      {"&H10", 16},
      {"&h1a", 26},
      {"&O17", 15},
      {"&o 1 7", 15},
      {"&H8000", -32768},
      {"&H10000", 65536},
      {"&HFFFFFFFF", -1},
      {"&HFFFFF", 1048575},
      {"&H000FFFF", -1},
      {"&HFF", 255},
      {"&HFF%", 255},
      {"&HFFFF&", 65535},
      {"&H7FFFFFFFFF", 549755813887.0},
      {"&O177777", -1},
      {"&O377", 255},
      {"&O37777777777", -1},
      {"&HG", 0},
      {"&17", 0},
      {"&", 0},
      {"& H1", 0},
      {"&H", 0},
      {"&HFFFFFFFFFFFFFFFF", -1},
  };
  for (const auto& c : cases) EXPECT_EQ(Val(c.text), c.expected) << '"' << c.text << '"';
}

TEST(ConvVal, TypeSuffixAndOverflowErrors) {
  expectCode(ConvErrc::TypeMismatch, [] { Val("50.5%"); });
  expectCode(ConvErrc::TypeMismatch, [] { Val("1.0&"); });
  expectCode(ConvErrc::Overflow, [] { Val("40000%"); });
  expectCode(ConvErrc::Overflow, [] { Val("1e309"); });
  expectCode(ConvErrc::Overflow, [] { Val("1e400000000000000000000000"); });
  expectCode(ConvErrc::Overflow, [] { Val("&H10000000000000000"); });
  EXPECT_EQ(Val("2147483647&"), 2147483647.0);
  EXPECT_EQ(Val("2.5!"), 2.5);
}

TEST(ConvVal, HugeTextsAreLinear) {
  std::string digits(1 << 20, '7');
  double v = Val(std::string("0.") + digits);
  EXPECT_NEAR(v, 7.0 / 9.0, 1e-15);
  std::string blanks(1 << 20, ' ');
  EXPECT_EQ(Val(blanks + "3" + blanks + "4"), 34);
  expectCode(ConvErrc::Overflow, [&] { Val(digits); });
  EXPECT_EQ(Val("1" + std::string(300, '0')), 1e300);
}
