// The arithmetic of labelmove's relabelling and trimsection's trimming step.
// Their effect on models is checked end to end by the golden cases.
#include <gtest/gtest.h>

#include "commands/label_order.h"
#include "commands/section_trimming.h"

using namespace korvane::commands;

namespace {

LabelOrder order(const char* digits) {
  auto o = parseLabelOrder(digits);
  EXPECT_TRUE(o) << digits;
  return o.value_or(LabelOrder{});
}

TEST(LabelOrder, OnlyFourDigitsOneToFourAreAnOrder) {
  EXPECT_TRUE(parseLabelOrder("1234"));
  EXPECT_TRUE(parseLabelOrder("4444"));   // a digit may repeat
  EXPECT_TRUE(parseLabelOrder("2341x"));  // only the first four count
  for (const char* bad : {"", "123", "1235", "0123", "12 4", "a234"})
    EXPECT_FALSE(parseLabelOrder(bad)) << bad;
}

TEST(LabelOrder, CharacterKOfTheNewLabelIsTheOldCharacterTheDigitNames) {
  EXPECT_EQ(permuteLabel("ABCD", order("1234")), "ABCD");
  EXPECT_EQ(permuteLabel("ABCD", order("2341")), "BCDA");  // one to the left
  EXPECT_EQ(permuteLabel("ABCD", order("4321")), "DCBA");
  EXPECT_EQ(permuteLabel("AB", order("2341")), "B  A");  // padded to four first
  EXPECT_EQ(permuteLabel("ABCDE", order("1234")), "ABCD");
}

TEST(LabelOrder, APartnerLabelFollowsOnlyAGOrMLabelWithTheSameLastThree) {
  const LabelOrder o = order("2134");
  const std::string tail = ",5=       0.0,       0.0,3";
  EXPECT_EQ(relabelHeader("080,G123,M123" + tail, o), "080,1G23,1M23" + tail);
  EXPECT_EQ(relabelHeader("080,m123,g123" + tail, o), "080,1m23,1g23" + tail);
  EXPECT_EQ(relabelHeader("080,A123,M123" + tail, o), "080,1A23,M123" + tail);
  EXPECT_EQ(relabelHeader("080,G123,M124" + tail, o), "080,1G23,M124" + tail);
  EXPECT_EQ(relabelHeader("080,G123,    " + tail, o), "080,1G23,    " + tail);
  // Records other than string headers pass unchanged.
  EXPECT_EQ(relabelHeader("081,G123,M123", o), "081,G123,M123");
  EXPECT_EQ(relabelHeader(" 0.1D+04 0.5D+04", o), " 0.1D+04 0.5D+04");
}

BoundaryMasks masks(std::initializer_list<const char*> given) {
  BoundaryMasks b;
  b.masks.fill("????");
  int i = 0;
  for (const char* m : given) b.masks[i++] = BoundaryMasks::normalise(m);
  return b;
}

std::vector<Crossing> crossings(std::initializer_list<const char*> labels) {
  std::vector<Crossing> c;
  float at = 0;
  for (const char* l : labels) c.push_back({l, at += 5});
  return c;
}

TEST(SectionTrimming, MasksAreFourUpperCaseCharactersWithBlanksAsAnyCharacter) {
  EXPECT_EQ(BoundaryMasks::normalise("g 1"), "G?1?");
  EXPECT_EQ(BoundaryMasks::normalise("e"), "E???");
  EXPECT_EQ(BoundaryMasks::normalise("ab12x"), "AB12");
  const BoundaryMasks b = masks({"e", "g#0"});
  EXPECT_TRUE(b.matches("E002"));
  EXPECT_TRUE(b.matches("G10 "));
  EXPECT_FALSE(b.matches("GX01"));
  EXPECT_FALSE(b.matchAll());
  EXPECT_TRUE(masks({}).matchAll());
}

TEST(SectionTrimming, WithoutMasksEveryPairIsCutFromTheEndDownToTheWholeString) {
  EXPECT_TRUE(trimRecords("S1  ", crossings({"GR01"}), masks({}), 0).empty());
  const std::vector<std::string> want = {"005,3=S1  ,6=3", "005,3=S1  ,6=2", "031,3=S1  "};
  EXPECT_EQ(trimRecords("S1  ", crossings({"A", "B", "C", "D"}), masks({}), 0), want);
}

// Boundary strings B at both ends and in the middle, around kept strings K:
// the runs between neighbouring boundary crossings go. Each record's point
// numbers are those the records before it left.
TEST(SectionTrimming, RunsBetweenBoundaryCrossingsGoFromEndMiddleAndStart) {
  // Points 1..9: B B K B B B K B B.
  const auto c =
      crossings({"B001", "B002", "K001", "B003", "B004", "B005", "K002", "B006", "B007"});
  const std::vector<std::string> want = {
      "005,3=S   ,6=8",      // 8-9 at the end: keep 1 to 8
      "006,3=S   ,6=5,9=6",  // 5-6 after the kept 6-7: break between 5 and 6
      "006,3=S   ,6=4,9=6",  // 4-5 as well: delete 5, break between 4 and 6
      "005,3=S   ,9=2"};     // 1-2 at the start: delete point 1
  EXPECT_EQ(trimRecords("S   ", c, masks({"B"}), 0), want);
}

TEST(SectionTrimming, DistKeepsPairsThatLieNoFurtherApart) {
  std::vector<Crossing> c = {{"B001", 0}, {"B002", 2}, {"B003", 10}};
  // 2-3 lie 8 apart, 1-2 only 2.
  const std::vector<std::string> want = {"005,3=S   ,6=2"};
  EXPECT_EQ(trimRecords("S   ", c, masks({"B"}), 5), want);
  EXPECT_EQ(trimRecords("S   ", c, masks({"B"}), 8).size(), 0u);  // not more than 8
  EXPECT_EQ(trimRecords("S   ", c, masks({"B"}), 0).back(), "031,3=S   ");
}

}  // namespace
