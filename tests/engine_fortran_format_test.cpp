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

// A field of an edit descriptor: "D23.17", "I6".
FieldSlot slotOf(const std::string& descriptor) {
  const Edit edits[] = {Edit::F, Edit::E, Edit::D, Edit::I};
  const std::size_t at = std::string("FEDI").find(descriptor[0]);
  FieldSlot slot{0, 0, std::atoi(descriptor.c_str() + 1), 0, edits[at]};
  const std::size_t point = descriptor.find('.');
  if (point != std::string::npos) slot.decimals = std::atoi(descriptor.c_str() + point + 1);
  return slot;
}

}  // namespace

TEST(FortranFormat, ParsesOrRefusesTheVectors) {
  for (const auto& v : korvane::test::readVectors("fortran_format.txt", 3)) {
    try {
      const std::string text = FortranFormat::parse(v.fields[0]).text();
      EXPECT_EQ(text, v.fields[1]) << v.where;
      EXPECT_EQ(FortranFormat::parse(text).text(), text) << v.where << ": reads back";
    } catch (const EngineError& e) {
      EXPECT_EQ(v.fields[1], "refused") << v.where << ": " << e.what();
      EXPECT_NE(std::string(e.what()).find(v.fields[2]), std::string::npos)
          << v.where << ": " << e.what();
    }
  }
}

// The layouts of tests/vectors/fortran_layouts.txt.
TEST(FortranFormat, LayoutsGiveTheirVectors) {
  for (const auto& v : korvane::test::readVectors("fortran_layouts.txt", 3)) {
    const RecordLayout l = layoutOf(v.fields[0], std::stoi(v.fields[1]));
    std::string got;
    for (const FieldSlot& f : l.slots)
      got += std::to_string(f.record) + ":" + std::to_string(f.column) +
             "FEDIAX/:"[static_cast<int>(f.edit)] + " ";
    for (int length : l.lengths) got += "|" + std::to_string(length);
    EXPECT_EQ(got, v.fields[2]) << v.where;
  }
}

TEST(FortranFormat, ReadsAndWritesTheVectorFields) {
  for (const auto& v : korvane::test::readVectors("fortran_fields.txt", 3)) {
    if (v.where.find("text]") != std::string::npos) {  // four-character values
      const int width = std::atoi(v.fields[1].c_str() + 1);
      EXPECT_EQ(v.where.find("[Write") != std::string::npos ? writeTextField(v.fields[0], width)
                                                            : readTextField(v.fields[0]),
                v.fields[2])
          << v.where;
      continue;
    }
    const FieldSlot slot = slotOf(v.fields[1]);
    if (v.where.find("[Write]") != std::string::npos) {
      EXPECT_EQ(writeNumberField(std::strtod(v.fields[0].c_str(), nullptr), slot), v.fields[2])
          << v.where;
      continue;
    }
    if (v.fields[2] == "same") {
      const double value = std::strtod(v.fields[0].c_str(), nullptr);
      const std::string written = writeNumberField(value, slot);
      EXPECT_EQ(written.size(), static_cast<std::size_t>(slot.width)) << v.where;
      EXPECT_EQ(readNumberField(written, slot), value) << v.where;
      continue;
    }
    std::optional<double> read = readNumberField(v.fields[0], slot);
    if (v.fields[2] == "refused") {
      EXPECT_FALSE(read) << v.where;
      continue;
    }
    const double want = std::strtod(v.fields[2].c_str(), nullptr);
    ASSERT_TRUE(read) << v.where;
    EXPECT_EQ(*read, want) << v.where;
    EXPECT_EQ(std::signbit(*read), std::signbit(want)) << v.where;
  }
  EXPECT_EQ(notANumber("   ABCD", FieldSlot{0, 4, 8, 3, Edit::F}),
            "'   ABCD' in columns 5-12 is not a number");
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
