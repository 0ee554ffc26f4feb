// The conversions of the input language against their vector files
// (tests/vectors/), and what a vector line cannot hold: values that are not
// finite, huge texts, the clock and the date settings.
#include "base/conversions.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

#include "support/vectors.h"

namespace korvane::test {
namespace {

using namespace conv;

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

template <typename F>
void expectError(ConvErrc code, F&& call, const std::string& where) {
  try {
    call();
    ADD_FAILURE() << where << ": no ConversionError";
  } catch (const ConversionError& e) {
    EXPECT_EQ(e.code(), code) << where << ": " << e.what();
  }
}

// The error a vector field names, if it names one.
std::optional<ConvErrc> errorNamed(const std::string& field) {
  if (field == "TypeMismatch") return ConvErrc::TypeMismatch;
  if (field == "Overflow") return ConvErrc::Overflow;
  if (field == "InvalidPattern") return ConvErrc::InvalidPattern;
  return std::nullopt;
}

// `call` gives the number the field holds, or raises the error it names.
template <typename F>
void expectNumber(const std::string& field, F&& call, const std::string& where) {
  if (auto code = errorNamed(field)) return expectError(*code, call, where);
  EXPECT_EQ(static_cast<double>(call()), std::strtod(field.c_str(), nullptr)) << where;
}

TEST(Conversions, ValVectors) {
  for (const auto& v : readVectors("val.txt", 2))
    expectNumber(
        v.fields[1], [&] { return Val(v.fields[0]); }, v.where + ": " + v.fields[0]);
  EXPECT_TRUE(std::signbit(Val("-0")));
}

TEST(Conversions, ValOfHugeTextsIsLinear) {
  const std::string digits(1 << 20, '7');
  EXPECT_NEAR(Val("0." + digits), 7.0 / 9.0, 1e-15);
  const std::string blanks(1 << 20, ' ');
  EXPECT_EQ(Val(blanks + "3" + blanks + "4"), 34);
  expectError(
      ConvErrc::Overflow, [&] { Val(digits); }, "a million digits");
  EXPECT_EQ(Val("1" + std::string(300, '0')), 1e300);
}

TEST(Conversions, CDblCIntAndCLngVectors) {
  for (const auto& v : readVectors("cdbl.txt", 2)) {
    const std::string where = v.where + ": " + v.fields[0];
    expectNumber(
        v.fields[1], [&] { return CDbl(v.fields[0]); }, where);
    EXPECT_EQ(IsNumeric(v.fields[0]), !errorNamed(v.fields[1])) << where;
  }
  EXPECT_FALSE(IsNumeric(std::string(1 << 20, '1') + "x"));
  for (const auto& v : readVectors("cint.txt", 3)) {
    const std::string where = v.where + ": " + v.fields[0];
    expectNumber(
        v.fields[1], [&] { return CInt(v.fields[0]); }, where + " CInt");
    expectNumber(
        v.fields[2], [&] { return CLng(v.fields[0]); }, where + " CLng");
  }
  for (double value : {kInf, -kInf, kNaN}) {
    expectError(
        ConvErrc::Overflow, [&] { CInt(value); }, std::to_string(value));
    expectError(
        ConvErrc::Overflow, [&] { CLng(value); }, std::to_string(value));
  }
}

TEST(Conversions, CStrVectorsReadBackThroughVal) {
  for (const auto& v : readVectors("cstr.txt", 2))
    EXPECT_EQ(CStr(std::strtod(v.fields[0].c_str(), nullptr)), v.fields[1])
        << v.where << ": " << v.fields[0];
  EXPECT_EQ(CStr(kInf), "1.#INF");
  EXPECT_EQ(CStr(-kInf), "-1.#INF");
  EXPECT_EQ(CStr(kNaN), "1.#QNAN");
  for (double v : {1.0 / 7, -2.0 / 3, 1e-7 / 3, 6.02214076e23, 123.456, -1e-300}) {
    const double back = Val(CStr(v));
    EXPECT_NEAR(back, v, std::fabs(v) * 1e-14) << CStr(v);
    EXPECT_EQ(CStr(back), CStr(v));
  }
}

TEST(Conversions, FormatVectors) {
  for (const auto& v : readVectors("format.txt", 3))
    EXPECT_EQ(Format(v.fields[0], v.fields[1]), v.fields[2])
        << v.where << ": Format(\"" << v.fields[0] << "\", \"" << v.fields[1] << "\")";
  expectError(
      ConvErrc::InvalidCall, [] { Format("1", "0;0;0;0;0"); }, "five sections");
  EXPECT_EQ(Format("1", std::string(100000, '0')).size(), 100000u);
  EXPECT_EQ(Format("1e308", "0%").size(), 312u);
}

TEST(Conversions, LikeVectorsAndManyStarsStayFast) {
  for (const auto& v : readVectors("like.txt", 3)) {
    const std::string where = v.where + ": \"" + v.fields[0] + "\" Like \"" + v.fields[1] + '"';
    if (auto code = errorNamed(v.fields[2]))
      expectError(
          *code, [&] { Like(v.fields[0], v.fields[1]); }, where);
    else
      EXPECT_EQ(Like(v.fields[0], v.fields[1]), v.fields[2] == "1") << where;
  }
  const std::string text(200000, 'a');
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(Like(text, "*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(Like(text + "b", "*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(Like(text, "*" + std::string(50, '?')));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(Conversions, DateVectorsAndTheDateSettings) {
  for (const auto& v : readVectors("dates.txt", 2)) {
    double serial = -1;
    const bool valid = v.fields[1] != "invalid";
    EXPECT_EQ(ParseDate(v.fields[0], serial), valid) << v.where << ": " << v.fields[0];
    if (valid) {
      EXPECT_NEAR(serial, std::stod(v.fields[1]), 1e-9) << v.where;
    }
  }
  const double now = NowSerial();
  EXPECT_GT(now, 45000);  // after 2023
  EXPECT_LT(now, 80000);
  double serial = 0;
  ASSERT_TRUE(ParseDate("2024-03-05 14:07:09", serial));
#ifndef _WIN32
  unsetenv("KORVANE_DATE_FORMAT");
  unsetenv("KORVANE_TIME_FORMAT");
  EXPECT_EQ(ShortDate(serial), "2024.03.05.");
  EXPECT_EQ(LongTime(serial), "14:07:09");
  setenv("KORVANE_DATE_FORMAT", "yyyy-mm-dd", 1);
  setenv("KORVANE_TIME_FORMAT", "Long Time", 1);
  EXPECT_EQ(ShortDate(serial), "2024-03-05");
  EXPECT_EQ(LongTime(serial), "2:07:09 PM");
  unsetenv("KORVANE_DATE_FORMAT");
  unsetenv("KORVANE_TIME_FORMAT");
  // What the date function returns reads back as a date.
  double back = 0;
  ASSERT_TRUE(ParseDate(ShortDate(now), back));
  EXPECT_EQ(back, static_cast<double>(static_cast<long long>(now)));
#endif
}

}  // namespace
}  // namespace korvane::test
