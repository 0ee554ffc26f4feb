#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "base/conversions.h"
#include "support/vectors.h"

using namespace korvane::conv;

TEST(ConvFormat, Vectors) {
  for (const auto& v : korvane::test::readVectors("format.txt", 3))
    EXPECT_EQ(Format(v.fields[0], v.fields[1]), v.fields[2])
        << v.where << ": Format(\"" << v.fields[0] << "\", \"" << v.fields[1] << "\")";
}

TEST(ConvFormat, FiveSectionsAreRefusedAndHugeResultsAreWhole) {
  try {
    Format("1", "0;0;0;0;0");
    ADD_FAILURE() << "five sections accepted";
  } catch (const ConversionError& e) {
    EXPECT_EQ(e.code(), ConvErrc::InvalidCall);
  }
  EXPECT_EQ(Format("1", std::string(100000, '0')).size(), 100000u);
  EXPECT_EQ(Format("1e308", "0%").size(), 312u);
}

TEST(ConvDates, ParseDateVectors) {
  for (const auto& v : korvane::test::readVectors("dates.txt", 2)) {
    double serial = -1;
    const bool valid = v.fields[1] != "invalid";
    EXPECT_EQ(ParseDate(v.fields[0], serial), valid) << v.where << ": " << v.fields[0];
    if (valid) {
      EXPECT_NEAR(serial, std::stod(v.fields[1]), 1e-9) << v.where;
    }
  }
}

TEST(ConvDates, ClockAndDateFunctions) {
  double now = NowSerial();
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
