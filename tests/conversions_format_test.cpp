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

TEST(ConvDates, ParseDateForms) {
  struct Case {
    const char* text;
    bool ok;
    double serial;
  };
  const Case cases[] = {
      {"2024-03-05", true, 45356},
      {"2024.03.05", true, 45356},
      {"2024.03.05.", true, 45356},
      {"2024/3/5", true, 45356},
      {"3/5/2024", true, 45356},
      {"3/5/24", true, 45356},
      {" 1899-12-30 ", true, 0},
      {"1900-01-01 12:36", true, 2.525},
      {"2024-03-05 18:00:00", true, 45356.75},
      {"06:00", true, 0.25},
      {"12:00 AM", true, 0},
      {"12:00 pm", true, 0.5},
      {"0100-01-01", true, -657434},
      {"9999-12-31", true, 2958465},
      {"0099-12-31", false, 0},
      {"2023-02-29", false, 0},
      {"2024-13-01", false, 0},
      {"2024-03-05x", false, 0},
      {"2024-03.05", false, 0},
      {"24:00", false, 0},
      {"13:00 PM", false, 0},
      {"12:60", false, 0},
      {"2024.03", false, 0},
      {"", false, 0},
      {"abc", false, 0},
      {"12345", false, 0},
  };
  for (const auto& c : cases) {
    double serial = -1;
    EXPECT_EQ(ParseDate(c.text, serial), c.ok) << c.text;
    if (c.ok) {
      EXPECT_NEAR(serial, c.serial, 1e-9) << c.text;
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
