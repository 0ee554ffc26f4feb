// Bad input ends the compile with a message that names the file and line, and
// what was compiled before stays written. The message of each kind of bad line
// is a golden case; here the failures a golden case cannot set up.
#include <gtest/gtest.h>

#include <atomic>

#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

struct Failures : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};

  // The failure that stopped the last compile.
  const CompileFailure& failure() const { return c.stopped->failure; }
};

TEST_F(Failures, ALongLineIsQuotedShortAndKeptWholeForTheFrontEnds) {
  const std::string line = "let,x=1/0,y=" + std::string(60000, 'y') + ",";
  project.write("long.ipf", line + "\r\n");
  ASSERT_FALSE(c.compile("long.ipf"));
  EXPECT_TRUE(failure().lineText == line);
  EXPECT_EQ(c.stopMessage(), "Run-time error: Division by zero\n" + project.path("long.ipf") +
                                 ", line 1\nLine: let,x=1/0,y=" + std::string(188, 'y') + "...");
}

TEST_F(Failures, AHugeLineIsRefusedWithoutTheLineBefore) {
  project.write("huge.ipf", "crea,a\r\n" + std::string(1 << 20, 'x') + "\r\n");
  EXPECT_FALSE(c.compile("huge.ipf"));
  EXPECT_EQ(c.failure(), "The line is too long (more than 65535 characters)");
  EXPECT_EQ(c.lines, (Lines{"crea,a"}));
}

TEST_F(Failures, InterruptionAndAMissingInputStop) {
  std::atomic<bool> interrupted{true};
  c.ctx.interrupted = &interrupted;
  project.write("a.ipf", "crea,a\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));
  // Before the line it would compile next, which it names; no error of the input.
  const std::string a = project.path("a.ipf");
  EXPECT_EQ(c.stopMessage(),
            "The run was interrupted in the entry " + a + "\n" + a + ", line 1\nLine: crea,a");
  EXPECT_TRUE(c.stopped->interrupted());
  EXPECT_TRUE(c.lines.empty());
  interrupted = false;

  EXPECT_FALSE(c.compile("missing.ipf"));
}

// An error of the layers below is the run-time failure it stands for (an
// engine that cannot answer: the golden case engine_cannot_answer); what is
// no failure of the input goes on untouched.
TEST(ForeignFailure, WhatIsNoErrorOfTheLayersBelowGoesOnUntouched) {
  try {
    throw std::bad_alloc();
  } catch (...) {
    EXPECT_THROW(foreignFailure(), std::bad_alloc);
  }
}

}  // namespace
