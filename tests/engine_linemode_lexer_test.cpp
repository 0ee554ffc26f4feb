#include <gtest/gtest.h>

#include <cmath>

#include "engine/linemode_lexer.h"
#include "engine/selection_masks.h"

using namespace korvane::engine;

TEST(LinemodeLexer, CommentsAndBlankLines) {
  EXPECT_EQ(classifyLine(""), LineKind::Blank);
  EXPECT_EQ(classifyLine("     "), LineKind::Blank);
  EXPECT_EQ(classifyLine("   any text, 080,AB"), LineKind::Comment);
  EXPECT_EQ(classifyLine("*** heading ***"), LineKind::Comment);
  EXPECT_EQ(classifyLine("  geni,A"), LineKind::Record);  // two blanks are not a comment
  EXPECT_EQ(classifyLine("999"), LineKind::Record);
}

TEST(LinemodeLexer, MajorOptionsByTheirFirstFourLetters) {
  struct Case {
    const char* record;
    Major major;
    const char* argument;
  };
  for (const Case& c :
       {Case{"crea,it is just a flag model", Major::Create, "it is just a flag model"},
        Case{"CREATE,ROAD", Major::Create, "ROAD"},
        Case{"dele,my model", Major::Delete, "my model"}, Case{"DELETE,x,", Major::Delete, "x"},
        Case{"geni,ROAD DESIGN", Major::Genio, "ROAD DESIGN"},
        Case{"GENIO   ROAD DESIGN  ", Major::Genio, "ROAD DESIGN"},
        Case{"Genio,\"ground model\"", Major::Genio, "ground model"},
        Case{"edit,M", Major::Edit, "M"}, Case{"over,tmp.txt,genio", Major::Over, "tmp.txt,genio"},
        Case{"over,,genio", Major::Over, ",genio"}, Case{"MOSS", Major::Moss, ""},
        Case{"fini", Major::Finish, ""}, Case{"FINISH", Major::Finish, ""}}) {
    auto m = parseMajor(c.record);
    ASSERT_TRUE(m) << c.record;
    EXPECT_EQ(m->major, c.major) << c.record;
    EXPECT_EQ(m->argument, c.argument) << c.record;
  }
  for (const char* notMajor : {"cre,x", "crex,y", "genx A", "OUTPUT,f", "geni1,A", "080,AB"})
    EXPECT_FALSE(parseMajor(notMajor)) << notMajor;
}

TEST(LinemodeLexer, MinorOptionNumbers) {
  EXPECT_EQ(minorNumber("080,AB"), 80);
  EXPECT_EQ(minorNumber("999"), 999);
  EXPECT_EQ(minorNumber("001FORMAT(3D23.17)"), 1);
  EXPECT_EQ(minorNumber("001format(8f12.3,4a4)"), 1);
  EXPECT_EQ(minorNumber("001,FORMAT (4F12.3,A4)"), 1);
  EXPECT_EQ(minorNumber("003ORDR 1 1 2 3"), -1);  // fixed-column form is not read
  EXPECT_EQ(minorNumber("80,AB"), -1);
  EXPECT_EQ(minorNumber("0.10000000000000000D+03"), -1);
}

TEST(LinemodeLexer, FieldsFollowPositionsAndKeepLabelBlanks) {
  Fields f;
  std::string error;
  ASSERT_TRUE(Fields::split("080,GX03,MX03,5= 0.0, 0.0, 3", f, error)) << error;
  EXPECT_EQ(f.raw(2), "GX03");
  EXPECT_EQ(f.raw(3), "MX03");
  std::optional<long> dim;
  ASSERT_TRUE(f.integer(7, dim, error));
  EXPECT_EQ(dim, 3);  // 5= puts 0.0 in 5, 0.0 in 6 and 3 in 7

  ASSERT_TRUE(Fields::split("019,L B ,4=-1", f, error));
  EXPECT_EQ(f.raw(2), "L B ");
  ASSERT_TRUE(f.integer(4, dim, error));
  EXPECT_EQ(dim, -1);

  ASSERT_TRUE(Fields::split("960,,,TX00", f, error));
  EXPECT_FALSE(f.has(2));
  EXPECT_EQ(f.raw(4), "TX00");

  ASSERT_TRUE(Fields::split("006,3=AB01,6=3,9=7", f, error));
  EXPECT_EQ(f.raw(3), "AB01");
  std::optional<long> a, b;
  ASSERT_TRUE(f.integer(6, a, error) && f.integer(9, b, error));
  EXPECT_EQ(*a * 10 + *b, 37);

  EXPECT_FALSE(Fields::split("005,X=3", f, error));
  EXPECT_FALSE(Fields::split("005,1=3", f, error));
}

TEST(LinemodeLexer, NumericFieldsRefuseText) {
  Fields f;
  std::string error;
  ASSERT_TRUE(Fields::split("005,3=AB,6=abc,9=2.5,10= 1.5D2 ", f, error));
  std::optional<long> n;
  EXPECT_FALSE(f.integer(6, n, error));
  EXPECT_NE(error.find("field 6 ('abc') is not a number"), std::string::npos);
  EXPECT_FALSE(f.integer(9, n, error));
  EXPECT_NE(error.find("not a whole number"), std::string::npos);
  std::optional<double> v;
  ASSERT_TRUE(f.number(10, v, error));
  EXPECT_EQ(v, 150.0);
  ASSERT_TRUE(f.number(12, v, error));
  EXPECT_FALSE(v);  // absent
  // Numbers in fields are read as the nearest double too: 100.00000000000001
  // is 0.42e-14 below 100 + 2^-46 and 1e-14 above 100.
  ASSERT_TRUE(Fields::split("080,A,,0.10000000000000001D+03", f, error));
  ASSERT_TRUE(f.number(4, v, error));
  EXPECT_EQ(v, std::nextafter(100.0, 200.0));
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
