#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/conversions.h"

using namespace korvane::conv;

namespace {
struct CStrCase {
  double value;
  const char* text;
};
}  // namespace

TEST(ConvCStr, GeneralForm) {
  const CStrCase cases[] = {
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {std::log(1000) / std::log(10), "3"},
      {0.0001, "0.0001"},
      {0.00001, "1E-05"},
      {-0.00001, "-1E-05"},
      {0.000123456789012345678, "0.000123456789012346"},
      {1.5E-07, "1.5E-07"},
      {123456789012345, "123456789012345"},
      {1E+14, "100000000000000"},
      {1E+15, "1E+15"},
      {999999999999999.9, "1E+15"},
      {1E+20, "1E+20"},
      {1E+100, "1E+100"},
      {14111111113353355.345455, "1.41111111133534E+16"},
      {437.324, "437.324"},
      {-2.5, "-2.5"},
      {-0.0, "0"},
      {0.0, "0"},
      {1.7976931348623157E+308, "1.79769313486232E+308"},
      {5E-324, "4.94065645841247E-324"},
      {12345678901234567890.0, "1.23456789012346E+19"},
      {100000000000002.5, "100000000000003"},
      {123456789012344.5, "123456789012345"},
      {-123456789012344.5, "-123456789012345"},
      {2.5, "2.5"},
      {100, "100"},
      {-1234.5, "-1234.5"},
      {0.5, "0.5"},
      {1e-100, "1E-100"},
  };
  for (const auto& c : cases) EXPECT_EQ(CStr(c.value), c.text) << c.text;
}

TEST(ConvCStr, NonFiniteValues) {
  EXPECT_EQ(CStr(std::numeric_limits<double>::infinity()), "1.#INF");
  EXPECT_EQ(CStr(-std::numeric_limits<double>::infinity()), "-1.#INF");
  EXPECT_EQ(CStr(std::numeric_limits<double>::quiet_NaN()), "1.#QNAN");
}

TEST(ConvCStr, ReadsBackThroughVal) {
  for (double v : {1.0 / 7, -2.0 / 3, 1e-7 / 3, 6.02214076e23, 123.456, -1e-300}) {
    double back = Val(CStr(v));
    EXPECT_NEAR(back, v, std::fabs(v) * 1e-14) << CStr(v);
    EXPECT_EQ(CStr(back), CStr(v));
  }
}
