// The arithmetic of labelmove's relabelling and trimsection's trimming step,
// as the vectors label_order.txt and section_trimming.txt give it. Their
// effect on models is checked end to end by the golden cases.
#include <gtest/gtest.h>

#include "commands/label_order.h"
#include "commands/section_trimming.h"
#include "support/vectors.h"

using namespace korvane::commands;

namespace {

TEST(LabelOrder, Vectors) {
  for (const auto& v : korvane::test::readVectors("label_order.txt", 4)) {
    const auto order = parseLabelOrder(v.fields[1]);
    const std::string got = !order                   ? "(no order)"
                            : v.fields[0] == "label" ? permuteLabel(v.fields[2], *order)
                                                     : relabelHeader(v.fields[2], *order);
    EXPECT_EQ(got, v.fields[3]) << v.where;
  }
}

// "LABEL@POSITION LABEL@POSITION ...": a label may hold blanks.
std::vector<Crossing> crossingsOf(const std::string& text) {
  std::vector<Crossing> out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t mark = text.find('@', at);
    const std::size_t blank = std::min(text.find(' ', mark), text.size());
    out.push_back({text.substr(at, mark - at), std::stof(text.substr(mark + 1, blank - mark - 1))});
    at = blank + 1;
  }
  return out;
}

BoundaryMasks masksOf(const std::string& text) {
  BoundaryMasks b;
  b.masks.fill("????");
  for (std::size_t at = 0, i = 0; at < text.size(); ++i) {
    const std::size_t comma = std::min(text.find(',', at), text.size());
    b.masks[i] = BoundaryMasks::normalise(text.substr(at, comma - at));
    at = comma + 1;
  }
  return b;
}

TEST(SectionTrimming, Vectors) {
  for (const auto& v : korvane::test::readVectors("section_trimming.txt", 4)) {
    std::string got;
    for (const std::string& r :
         trimRecords("S", crossingsOf(v.fields[2]), masksOf(v.fields[0]), std::stod(v.fields[1])))
      got += (got.empty() ? "" : " | ") + r;
    EXPECT_EQ(got, v.fields[3]) << v.where;
  }
}

}  // namespace
