#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "base/conversions.h"
#include "support/vectors.h"

using namespace korvane::conv;

TEST(ConvCStr, Vectors) {
  for (const auto& v : korvane::test::readVectors("cstr.txt", 2))
    EXPECT_EQ(CStr(std::strtod(v.fields[0].c_str(), nullptr)), v.fields[1])
        << v.where << ": " << v.fields[0];
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
