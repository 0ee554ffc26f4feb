#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>

#include "engine/engine_error.h"
#include "engine/fortran_format.h"
#include "support/vectors.h"

using namespace korvane::engine;

namespace {

RecordLayout layoutOf(const std::string& descriptors, int items) {
  return FortranFormat::parse(descriptors).layout(items);
}

double readNum(const std::string& field, Edit e, int w, int d) {
  std::optional<double> v = readNumberField(field, FieldSlot{0, 0, w, d, e});
  EXPECT_TRUE(v) << field;
  return v.value_or(-12345);
}

std::string writeNum(double v, Edit e, int w, int d) {
  return writeNumberField(v, FieldSlot{0, 0, w, d, e});
}

}  // namespace

TEST(FortranFormat, ParsesOrRefusesTheVectors) {
  for (const auto& v : korvane::test::readVectors("fortran_format.txt", 3)) {
    try {
      const std::string text = FortranFormat::parse(v.fields[0]).text();
      EXPECT_EQ(text, v.fields[1]) << v.where;
    } catch (const EngineError& e) {
      EXPECT_EQ(v.fields[1], "refused") << v.where << ": " << e.what();
      EXPECT_NE(std::string(e.what()).find(v.fields[2]), std::string::npos)
          << v.where << ": " << e.what();
    }
  }
}

TEST(FortranFormat, LayoutStopsAtFirstDescriptorWithoutItem) {
  // x, y, z under (8F12.3,4A4): one record of 36 columns.
  RecordLayout l = layoutOf("(8F12.3,4A4)", 3);
  ASSERT_EQ(l.records(), 1);
  EXPECT_EQ(l.lengths[0], 36);
  EXPECT_EQ(l.slots[2].column, 24);
  // Five items under (4F12.3,A4): the text lands in columns 49-52.
  l = layoutOf("(4F12.3,A4)", 5);
  EXPECT_EQ(l.lengths[0], 52);
  EXPECT_EQ(l.slots[4].column, 48);
  EXPECT_EQ(l.slots[4].edit, Edit::A);
  // nX moves the column; a "/" before the stop is still obeyed (an empty record).
  l = layoutOf("(F5.1,3X,F5.1/F5.1)", 2);
  EXPECT_EQ(l.slots[1].column, 8);
  EXPECT_EQ(l.records(), 2);
  EXPECT_EQ(l.lengths[1], 0);
  // ":" ends the statement when no item is left.
  EXPECT_EQ(layoutOf("(F5.1,:/F5.1)", 1).records(), 1);
}

TEST(FortranFormat, LayoutRevertsToLastGroupOrStart) {
  // Six items with (3D23.17): the format is used again on a second record.
  RecordLayout l = layoutOf("(3D23.17)", 6);
  ASSERT_EQ(l.records(), 2);
  EXPECT_EQ(l.slots[3].record, 1);
  EXPECT_EQ(l.slots[3].column, 0);
  // Reversion goes back to the last top-level group, not the start.
  l = layoutOf("(I3,2(F4.1))", 5);
  ASSERT_EQ(l.records(), 2);
  EXPECT_EQ(l.slots[3].edit, Edit::F);
  EXPECT_EQ(l.slots[3].column, 0);
  EXPECT_EQ(l.slots[4].column, 4);
  // The 12-dimensional MX layout: three records, texts in columns 47-62 of the third.
  l = layoutOf("(3D23.17/3D23.17/2D23.17,4A4)", 12);
  ASSERT_EQ(l.records(), 3);
  EXPECT_EQ(l.slots[8].record, 2);
  EXPECT_EQ(l.slots[8].column, 46);
  EXPECT_EQ(l.lengths[2], 62);
}

TEST(FortranFormat, ReadsNumbersTheFortranWay) {
  EXPECT_DOUBLE_EQ(readNum("0.20652000000000000D+04", Edit::D, 23, 17), 2065.2);
  EXPECT_DOUBLE_EQ(readNum("-.99900000000000000D+03", Edit::D, 23, 17), -999.0);
  EXPECT_DOUBLE_EQ(readNum("   1.5E2", Edit::F, 8, 3), 150.0);
  EXPECT_DOUBLE_EQ(readNum("  1.5d-1", Edit::F, 8, 3), 0.15);
  EXPECT_DOUBLE_EQ(readNum("0.1234+100", Edit::E, 10, 4), 0.1234e100);  // exponent without letter
  EXPECT_DOUBLE_EQ(readNum("        ", Edit::F, 8, 3), 0.0);            // blank field
  EXPECT_DOUBLE_EQ(readNum("   12345", Edit::F, 8, 3), 12.345);         // implied decimal point
  EXPECT_DOUBLE_EQ(readNum("  1 2.5 ", Edit::F, 8, 3), 12.5);           // blanks ignored
  EXPECT_DOUBLE_EQ(readNum("   -42", Edit::I, 6, 0), -42.0);
  for (const char* bad : {"  12.3.4", "   ABCD", "    1e", "  --1.0", "  1.0E+", "1,5"})
    EXPECT_FALSE(readNumberField(bad, FieldSlot{0, 4, 8, 3, Edit::F})) << bad;
  EXPECT_EQ(notANumber("   ABCD", FieldSlot{0, 4, 8, 3, Edit::F}),
            "'   ABCD' in columns 5-12 is not a number");
  EXPECT_FALSE(readNumberField("  1.5", FieldSlot{0, 0, 5, 0, Edit::I}));
  EXPECT_FALSE(readNumberField("1D999", FieldSlot{0, 0, 5, 0, Edit::D}));  // overflow
}

TEST(FortranFormat, ReadsTheNearestDouble) {
  // 14.999999999999999 lies 1e-15 below 15, but only 0.78e-15 above the
  // double below 15 (15 - 2^-49): that one is nearer.
  EXPECT_EQ(readNum("0.14999999999999999D+02", Edit::D, 23, 17), std::nextafter(15.0, 0.0));
  // 100.00000000000001 lies 1e-14 above 100 and 0.42e-14 below 100 + 2^-46.
  EXPECT_EQ(readNum("0.10000000000000001D+03", Edit::D, 23, 17), std::nextafter(100.0, 200.0));
  // 2^53 + 1 lies halfway between 2^53 and 2^53 + 2: the even one is taken.
  EXPECT_EQ(readNum("0.9007199254740993D+16", Edit::D, 23, 17), std::ldexp(1.0, 53));
  EXPECT_EQ(readNum("0.9007199254740995D+16", Edit::D, 23, 17), std::ldexp(1.0, 53) + 4);
  // Exactly representable values, however written.
  EXPECT_EQ(readNum("0.25000000000000000D+00", Edit::D, 23, 17), 0.25);
  EXPECT_EQ(readNum("  25000000000000000000", Edit::F, 22, 20), 0.25);  // implied point
  EXPECT_EQ(readNum("-.99900000000000000D+03", Edit::D, 23, 17), -999.0);
  EXPECT_EQ(readNum("   0.0000000000000000000000000000000000000001024D+43", Edit::D, 51, 17),
            1024.0);  // leading zeros do not count
  // Below the smallest double a value is 0 (with its sign); the sign of 0 is kept.
  EXPECT_EQ(readNum("0.1D-999", Edit::D, 8, 1), 0.0);
  EXPECT_TRUE(std::signbit(readNum("-0.1D-999", Edit::D, 9, 1)));
  EXPECT_TRUE(std::signbit(readNum("-0.0", Edit::F, 4, 1)));
  // The smallest subnormal is a number, not an underflow.
  EXPECT_EQ(readNum("0.49406564584124654D-323", Edit::D, 23, 17),
            std::numeric_limits<double>::denorm_min());
}

TEST(FortranFormat, ReadsRandomDecimalsAsTheNearestDouble) {
  // Checked against long double arithmetic where it carries 11 more bits:
  // neither neighbour of the value read may lie nearer to the decimal.
  if (std::numeric_limits<long double>::digits < 64) GTEST_SKIP() << "no extended precision";
  std::mt19937_64 rng(20240611);
  int checked = 0;
  for (int i = 0; i < 2000; ++i) {
    char text[40];
    unsigned long long mantissa = 10000000000000000ULL + rng() % 90000000000000000ULL;
    int exponent = static_cast<int>(rng() % 41) - 20;
    std::snprintf(text, sizeof text, "0.%017lluD%+03d", mantissa, exponent);
    double v = readNum(text, Edit::D, 23, 17);
    std::string e(text);
    e[e.find('D')] = 'E';
    long double exact = std::strtold(e.c_str(), nullptr);
    long double here = std::fabs(exact - v);
    long double ulp = std::nextafter(v, 2 * v) - v;
    for (double neighbour : {std::nextafter(v, 0.0), std::nextafter(v, 2 * v)}) {
      long double there = std::fabs(exact - neighbour);
      if (std::fabs(there - here) < ulp * 1e-3L) continue;  // too close to a tie to judge
      EXPECT_LT(here, there) << text;
      ++checked;
    }
  }
  EXPECT_GT(checked, 3900);
}

TEST(FortranFormat, WritesFixedAndExponentialFields) {
  EXPECT_EQ(writeNum(2065.2, Edit::D, 23, 17), "0.20652000000000000D+04");
  EXPECT_EQ(writeNum(-999, Edit::D, 23, 17), "-.99900000000000000D+03");  // optional zero dropped
  EXPECT_EQ(writeNum(0, Edit::D, 23, 17), "0.00000000000000000D+00");
  EXPECT_EQ(writeNum(0.000123, Edit::E, 12, 4), "  0.1230E-03");
  EXPECT_EQ(writeNum(1.5e150, Edit::E, 12, 4),
            "  0.1500+151");  // 3-digit exponent drops the letter
  EXPECT_EQ(writeNum(9.99996, Edit::E, 12, 4),
            "  0.1000E+02");  // rounding carries into the exponent
  EXPECT_EQ(writeNum(std::numeric_limits<double>::infinity(), Edit::F, 6, 1), "******");
  EXPECT_EQ(writeNum(123.4567, Edit::F, 12, 3), "     123.457");
  EXPECT_EQ(writeNum(-0.0004, Edit::F, 8, 3), "   0.000");  // no negative zero
  EXPECT_EQ(writeNum(0.5, Edit::F, 4, 3), ".500");
  EXPECT_EQ(writeNum(-0.5, Edit::F, 5, 3), "-.500");
  EXPECT_EQ(writeNum(123456789.0, Edit::F, 12, 3), "************");
  EXPECT_EQ(writeNum(41.6, Edit::I, 4, 0), "  42");
  EXPECT_EQ(writeNum(12345, Edit::I, 4, 0), "****");
}

TEST(FortranFormat, WrittenValuesReadBackExactly) {
  for (double v : {2065.2, -999.0, 1.0 / 3.0, 650123.456789, -1e-7, 6.02e23}) {
    std::string s = writeNum(v, Edit::D, 23, 17);
    ASSERT_EQ(s.size(), 23u) << s;
    EXPECT_EQ(readNum(s, Edit::D, 23, 17), v) << s;
  }
}

TEST(FortranFormat, TextsAreFourCharacterValues) {
  EXPECT_EQ(writeTextField("AB", 4), "AB  ");
  EXPECT_EQ(writeTextField("ABCD", 6), "  ABCD");  // right-justified in a wider field
  EXPECT_EQ(writeTextField("ABCD", 2), "AB");
  EXPECT_EQ(readTextField("  ABCD"), "ABCD");  // the rightmost four
  EXPECT_EQ(readTextField("AB  "), "AB");
  EXPECT_EQ(readTextField(" B  "), " B");
}
