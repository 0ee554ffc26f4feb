#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "base/conversions.h"
#include "support/vectors.h"

using namespace korvane::conv;

namespace {

template <typename F>
void expectCode(ConvErrc code, F call, const std::string& label) {
  try {
    call();
    ADD_FAILURE() << label << ": no ConversionError";
  } catch (const ConversionError& e) {
    EXPECT_EQ(e.code(), code) << label;
  }
}

}  // namespace

TEST(ConvCoerce, CDblVectors) {
  for (const auto& v : korvane::test::readVectors("cdbl.txt", 2)) {
    const std::string& text = v.fields[0];
    const std::string& want = v.fields[1];
    if (want == "TypeMismatch" || want == "Overflow") {
      expectCode(
          want == "Overflow" ? ConvErrc::Overflow : ConvErrc::TypeMismatch, [&] { CDbl(text); },
          v.where + ": " + text);
      EXPECT_FALSE(IsNumeric(text)) << v.where;
    } else {
      EXPECT_EQ(CDbl(text), std::stod(want)) << v.where << ": " << text;
      EXPECT_TRUE(IsNumeric(text)) << v.where;
    }
  }
  EXPECT_FALSE(IsNumeric(std::string(1 << 20, '1') + "x"));
}

TEST(ConvCoerce, IntegersRoundHalfToEven) {
  const std::pair<double, int> cases[] = {
      {0.5, 0},           {1.5, 2},
      {2.5, 2},           {3.5, 4},
      {-0.5, 0},          {-1.5, -2},
      {-0.6, -1},         {0.6, 1},
      {-0.4, 0},          {32767.49, 32767},
      {-32768.5, -32768}, {2345.5678, 2346},
      {-2.5, -2},         {0.49999999999999994, 0},
  };
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(CInt(value), expected) << value;
    EXPECT_EQ(CLng(value), expected) << value;
  }
  EXPECT_EQ(CInt("-1.5"), -2);
  EXPECT_EQ(CInt("1.5"), 2);
  EXPECT_EQ(CLng("1.5"), 2);
  EXPECT_EQ(CLng("2147483647"), 2147483647);
  EXPECT_EQ(CLng("-2147483648"), INT32_MIN);
  EXPECT_EQ(CInt("&H8000"), -32768);
}

TEST(ConvCoerce, IntegersOverflowOutsideTheirRange) {
  const double inf = std::numeric_limits<double>::infinity();
  for (double v :
       {32767.5, -32768.51, -32769.0, 32768.0, inf, -inf, std::numeric_limits<double>::quiet_NaN()})
    expectCode(
        ConvErrc::Overflow, [&] { CInt(v); }, std::to_string(v));
  for (double v : {2147483647.5, -2147483649.0, 1e10, inf})
    expectCode(
        ConvErrc::Overflow, [&] { CLng(v); }, std::to_string(v));
  expectCode(
      ConvErrc::Overflow, [] { CInt("32768"); }, "32768");
  expectCode(
      ConvErrc::Overflow, [] { CInt("-32769"); }, "-32769");
  expectCode(
      ConvErrc::Overflow, [] { CLng("2147483648"); }, "2147483648");
  expectCode(
      ConvErrc::Overflow, [] { CLng("-2147483649"); }, "-2147483649");
  expectCode(
      ConvErrc::Overflow, [] { CLng("&HFFFFFFFFF"); }, "&HFFFFFFFFF");
  expectCode(
      ConvErrc::TypeMismatch, [] { CInt("x"); }, "x");
  expectCode(
      ConvErrc::TypeMismatch, [] { CLng(""); }, "empty");
}
