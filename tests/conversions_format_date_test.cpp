#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "base/conversions.h"
#include "support/format_cases.h"

using namespace korvane::conv;

namespace {
using korvane::test::FormatCase;

constexpr const char* kDec58 = "1958-12-07 20:50:35";
constexpr const char* kMar24 = "2024-03-05 14:07:09";
}  // namespace

// Windows (en-US) results for 7 Dec 1958 20:50:35 and serial 2.525 (1 Jan 1900 12:36:00).
TEST(ConvFormatDate, VerifiedPatterns) {
  const FormatCase cases[] = {
      {kDec58, "m/d/yy", "12/7/58"},
      {kDec58, "d-mmm", "7-Dec"},
      {kDec58, "d-mmmm-yy", "7-December-58"},
      {kDec58, "d mmmm", "7 December"},
      {kDec58, "mmmm yy", "December 58"},
      {kDec58, "hh:mm AM/PM", "08:50 PM"},
      {kDec58, "h:mm:ss a/p", "8:50:35 p"},
      {kDec58, "h:mm", "20:50"},
      {kDec58, "h:mm:ss", "20:50:35"},
      {kDec58, "m/d/yy h:mm", "12/7/58 20:50"},
      {"2.525", "dd mm yyyy hh:mm:ss", "01 01 1900 12:36:00"},
      {"2.525", "dd mm yyyy mm", "01 01 1900 01"},
      {"2.525", "mm :mm:ss", "01 :01:00"},
      {"2.525", "mm :ss:mm", "01 :00:01"},
      {"2.525", "hh:mm :ss:mm", "12:36 :00:01"},
      {"2.525", "hh:dd :mm:mm", "12:01 :01:01"},
      {"2.525", "dd :mm:nn", "01 :01:36"},
      {"2.525", "y", "1"},
      {"2.525", "yy", "00"},
      {"2.525", "yyyy", "1900"},
      {"2.525", "q", "1"},
      {"2.525", "d", "1"},
      {"2.525", "dd", "01"},
      {"2.525", "ddd", "Mon"},
      {"2.525", "dddd", "Monday"},
      {"2.525", "mmm", "Jan"},
      {"2.525", "mmmm", "January"},
      {"2.525", "am/pm", "pm"},
      {"2.525", "AM/PM", "PM"},
      {"2.525", "A/P", "P"},
      {"2.525", "a/p", "p"},
      {"2.725", "hh:nn:ss A/P", "05:24:00 P"},
      {"2.525", "short time", "12:36"},
      {"2.525", "medium time", "12:36 PM"},
      {"2.525", "long time", "12:36:00 PM"},
      {"365", "General Date", "12/30/1900"},
      {"365.25", "General Date", "12/30/1900 6:00:00 AM"},
      {"0", "General Date", "12:00:00 AM"},
      {"3.34", "General Date", "1/2/1900 8:09:36 AM"},
  };
  korvane::test::checkFormat(cases);
}

TEST(ConvFormatDate, EngineersPatterns) {
  const FormatCase cases[] = {
      {kMar24, "yyyy-mm-dd", "2024-03-05"},
      {kMar24, "dd.mm.yyyy", "05.03.2024"},
      {kMar24, "hh:nn:ss", "14:07:09"},
      {kMar24, "hh:mm:ss", "14:07:09"},
      {kMar24, "Short Date", "3/5/2024"},
      {kMar24, "General Date", "3/5/2024 2:07:09 PM"},
      {kMar24, "Long Date", "Tuesday, March 5, 2024"},
      {kMar24, "Medium Date", "05-Mar-24"},
      {kMar24, "ddddd ttttt", "3/5/2024 2:07:09 PM"},
      {kMar24, "c", "3/5/2024 2:07:09 PM"},
      {kMar24, "w ww y", "3 10 65"},
      {"2024-01-01", "w ww", "2 1"},  // a Monday: Sunday 31 Dec belongs to the old year
      {"2024-01-06", "ww", "1"},
      {"2024-01-07", "w ww", "1 2"},
      {"2024-12-31", "ww y", "53 366"},
      {kMar24, "yyyymmdd_hhnnss", "20240305_140709"},
      {kMar24, "\\d\\a\\y: d", "day: 5"},
      {kMar24, "\"week \"ww", "week 10"},
      {kMar24, "h AMPM", "2 PM"},
      {"2024-03-05 00:30", "h:nn am/pm", "12:30 am"},
      {"2024-03-05 12:30", "hh:nn A/P", "12:30 P"},
      {"2024.03.05.", "yyyy-mm-dd", "2024-03-05"},
      {"2024. 03. 05.", "yyyy-mm-dd", "2024-03-05"},
      {"3/5/2024", "yyyy-mm-dd", "2024-03-05"},
      {"14:07", "hh:nn:ss", "14:07:00"},
      {"2:07 PM", "hh:nn", "14:07"},
      {"45356", "yyyy-mm-dd", "2024-03-05"},
      {"45356.5", "dd hh", "05 12"},
      {"-1.25", "yyyy-mm-dd hh:nn", "1899-12-29 06:00"},
      {"0.99999999", "yyyy-mm-dd hh:nn:ss", "1899-12-31 00:00:00"},
      {"2024-03-05", "0.00", "45356.00"},  // a date under a number pattern is its serial
      {"abc", "yyyy-mm-dd", "abc"},
      {"1e10", "yyyy", "1e10"},        // beyond 9999
      {"-700000", "yyyy", "-700000"},  // before the year 100
      {"0100-01-01 23:00", "yyyy-mm-dd hh", "100-01-01 23"},
      {"2958465.999999999", "yyyy-mm-dd hh:nn:ss", "9999-12-31 23:59:59"},
      {"2024-02-30", "yyyy", "2024-02-30"},  // no such day: not a date
  };
  korvane::test::checkFormat(cases);
}

TEST(ConvFormatText, StringPatterns) {
  const FormatCase cases[] = {
      {"testing", "@@@@@@@@", " testing"},
      {"testing", ">&&", "TESTING"},
      {"testing", "\\x@\\x@", "xtxesting"},
      {"testing", "@\\x", "txesting"},
      {"testing", "&&&&&&&!", "testing"},
      {"Mixed", "<", "mixed"},
      {"\xE1rok", ">", "\xC1ROK"},  // Windows-1250 letters change case too
      {"Mixed", "@", "Mixed"},      // no case change without "<" or ">"
      {"ab", "&@@", "a b"},
      {"ab", "(@@@)", "( ab)"},
      {"", "@;\"empty\"", "empty"},
      {"x", "@;\"empty\"", "x"},
      {"abc", "\"ref \"", "ref abc"},  // literals only: the text follows them
      {"abc", "xyz", "abc"},           // "y" makes it a date pattern; "abc" is no date
  };
  korvane::test::checkFormat(cases);
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
  ASSERT_TRUE(ParseDate(kMar24, serial));
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
