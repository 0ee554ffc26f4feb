#include <gtest/gtest.h>

#include <cmath>

#include "engine/engine_error.h"
#include "engine/linemode_lexer.h"
#include "engine/selection_masks.h"
#include "support/vectors.h"

using namespace korvane::engine;

// The lines of tests/vectors/linemode_lines.txt.
TEST(LinemodeLexer, LinesGiveTheirVectors) {
  for (const auto& v : korvane::test::readVectors("linemode_lines.txt", 2)) {
    const LineKind kind = classifyLine(v.fields[0]);
    EXPECT_EQ(kind == LineKind::Blank     ? "blank"
              : kind == LineKind::Comment ? "comment"
                                          : "record:" + recordKey(v.fields[0]),
              v.fields[1])
        << v.where;
  }
  EXPECT_EQ(majorWord("GENIO   ROAD"), "GENIO");
}

TEST(LinemodeLexer, FieldsFollowPositionsAndKeepLabelBlanks) {
  Fields f("080,GX03,MX03,5= 0.0, 0.0, 3");
  EXPECT_EQ(f.raw(2), "GX03");
  EXPECT_EQ(f.raw(3), "MX03");
  EXPECT_EQ(f.integer(7), 3);  // 5= puts 0.0 in 5, 0.0 in 6 and 3 in 7

  f = Fields("019,L B ,4=-1");
  EXPECT_EQ(f.raw(2), "L B ");
  EXPECT_EQ(f.integer(4), -1);

  f = Fields("960,,,TX00");
  EXPECT_FALSE(f.has(2));
  EXPECT_EQ(f.raw(4), "TX00");

  f = Fields("006,3=AB01,6=3,9=7");
  EXPECT_EQ(f.raw(3), "AB01");
  EXPECT_EQ(f.integer(6), 3);
  EXPECT_EQ(f.integer(9), 7);

  EXPECT_THROW(Fields("005,X=3"), EngineError);
  EXPECT_THROW(Fields("005,1=3"), EngineError);
}

TEST(LinemodeLexer, NumericFieldsRefuseText) {
  Fields f("005,3=AB,6=abc,9=2.5,10= 1.5D2 ");
  auto why = [&](auto read) -> std::string {
    try {
      read();
    } catch (const EngineError& e) {
      return e.what();
    }
    return "read";
  };
  EXPECT_EQ(why([&] { f.integer(6); }), "field 6 ('abc') is not a number");
  EXPECT_EQ(why([&] { f.integer(9); }), "field 9 ('2.5') is not a whole number");
  EXPECT_EQ(f.number(10), 150.0);
  EXPECT_EQ(f.number(12), std::nullopt);  // absent
  // Numbers in fields are read as the nearest double too: 100.00000000000001
  // is 0.42e-14 below 100 + 2^-46 and 1e-14 above 100.
  EXPECT_EQ(Fields("080,A,,0.10000000000000001D+03").number(4), std::nextafter(100.0, 200.0));
}

TEST(LinemodeLexer, SelectionMasksFirstMatchDecides) {
  SelectionMasks m;
  EXPECT_TRUE(m.selects("ANY"));  // no mask: everything
  m.add("AB01", true);
  m.add("AB", false);  // short mask: "AB  " with blank wildcards
  m.add("?C?1", true);
  m.add("", false);  // blank mask: everything else
  EXPECT_TRUE(m.selects("AB01"));
  EXPECT_TRUE(m.selects("ab01"));
  EXPECT_FALSE(m.selects("AB02"));
  EXPECT_TRUE(m.selects("XCZ1"));
  EXPECT_FALSE(m.selects("XCZ2"));
  EXPECT_FALSE(m.selects("Q"));
  EXPECT_TRUE(SelectionMasks::matches("L B ", "LXB"));
  EXPECT_FALSE(SelectionMasks::matches("L B1", "LXB"));  // label padded with a blank
}
