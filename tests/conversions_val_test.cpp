#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "base/conversions.h"
#include "support/vectors.h"

using namespace korvane::conv;

namespace {

void expectCode(ConvErrc code, auto&& call) {
  try {
    call();
    ADD_FAILURE() << "no ConversionError";
  } catch (const ConversionError& e) {
    EXPECT_EQ(e.code(), code) << e.what();
  }
}

}  // namespace

TEST(ConvVal, Vectors) {
  for (const auto& v : korvane::test::readVectors("val.txt", 2))
    EXPECT_EQ(Val(v.fields[0]), std::stod(v.fields[1]))
        << v.where << ": Val(\"" << v.fields[0] << "\")";
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
