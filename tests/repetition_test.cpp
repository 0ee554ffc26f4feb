// Repetition over a selection list the test sets; the other forms of insert
// and their failures are the golden cases repeat_forms, repeat_missing and
// endrepeat_missing.
#include <gtest/gtest.h>

#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

struct Repetition : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
};

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

}  // namespace
