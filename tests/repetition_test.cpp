// Repetition forms of insert: counted, over the selection list, over data rows.
#include <gtest/gtest.h>

#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

struct Repetition : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
};

TEST_F(Repetition, CountedRepeatStopsWhenTheBlockAssignsEnd) {
  project.write("m.ipm",
                "crea,head\r\nrepeat\r\ncrea,|count|\r\nif count=2 then repeat=end\r\n"
                "endrepeat\r\ncrea,tail\r\n");
  project.write("a.ipf", "insert,m\r\nrepeat=5\r\ncrea,|count|\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,head", "crea,1", "crea,2", "crea,tail", "crea,2"}));
}

TEST_F(Repetition, ZeroRepeatsCompileOnlyTheLeadingAndTrailingParts) {
  project.write("m.ipm", "crea,head\r\nrepeat\r\ncrea,body\r\nendrepeat\r\ncrea,tail\r\n");
  project.write("a.ipf", "insert,m\r\nrepeat=0\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,head", "crea,tail"}));
}

TEST_F(Repetition, EachIteratesTheSelectionList) {
  c.ctx.selection = {"A001", "A002", "B001"};
  project.write("m.ipm", "repeat\r\ncrea,|each|,|count|/|repeat|\r\nendrepeat\r\n");
  project.write("a.ipf", "insert,m\r\nrepeat=each0000002\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,A001,1/2", "crea,A002,2/2"}));
  project.write("b.ipf", "insert,m\r\nrepeat=each0000004\r\n");
  EXPECT_FALSE(c.compile("b.ipf"));  // beyond the list
  ASSERT_TRUE(c.ctx.failure.has_value());
}

TEST_F(Repetition, SingleRowsSetFieldsAndCount) {
  project.write("row.ipm", "repeat\r\ncrea,|f1|-|f2|,|count|\r\nendrepeat\r\n");
  project.write("a.ipf",
                "insert,row\r\nrepeat=single\r\nA1,x\r\n## skipped\r\nB2,|1+1|\r\n"
                "END\r\ncrea,after\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,A1-x,1", "crea,B2-2,2", "crea,after"}));
}

TEST_F(Repetition, SingleRowsAfterRepeatEndAreReadAndIgnored) {
  project.write("row.ipm", "repeat\r\ncrea,|f1|\r\nif f1=stop then repeat=end\r\nendrepeat\r\n");
  project.write("a.ipf", "insert,row\r\nrepeat=single\r\na\r\nstop\r\nz\r\nend\r\ncrea,after\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,a", "crea,stop", "crea,after"}));
}

TEST_F(Repetition, DoubleRowsMakeSegmentsThatStartWhereTheLastEnded) {
  project.write("seg.ipm", "repeat\r\ncrea,|f1_s|>|f1_e|:|f2_s|>|f2_e|\r\nendrepeat\r\n");
  project.write("a.ipf", "insert,seg\r\nrepeat=double\r\n0,a\r\n10,b\r\n25,c\r\nend\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,0>10:a>b", "crea,10>25:b>c"}));
  EXPECT_EQ(c.var("count"), "2");
}

TEST_F(Repetition, MissingRepeatOrEndrepeatStops) {
  project.write("norep.ipm", "crea,only\r\n");
  project.write("noend.ipm", "crea,lead\r\nrepeat\r\ncrea,body\r\n");
  project.write("a.ipf", "insert,norep\r\nrepeat=1\r\n");
  project.write("b.ipf", "insert,noend\r\nrepeat=1\r\n");
  const Messages& m = c.ctx.messages;
  // The message names the file that lacks the line and the line that inserted it.
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.ctx.stop.message, m.format("Messages", "s14", "repeat") + "\n" +
                                    m.format("Diagnostics", "infile", project.path("norep.ipm")) +
                                    "\n" + m.format("Diagnostics", "pass", "1") + "\n" +
                                    m.format("Diagnostics", "inserted", project.path("a.ipf"), "1"));
  c.lines.clear();
  EXPECT_FALSE(c.compile("b.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,lead", "crea,body"}));
  EXPECT_EQ(c.ctx.stop.message, m.format("Messages", "s14", "endrepeat") + "\n" +
                                    m.format("Diagnostics", "infile", project.path("noend.ipm")) +
                                    "\n" +
                                    m.format("Diagnostics", "inserted", project.path("b.ipf"), "1"));
}

}  // namespace
