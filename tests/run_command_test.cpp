// The Run command with nothing to run, and the run after one that MX stopped
// early. Entries in order until one stops, the save files, progress and
// status are the golden cases run_*.
#include "shell/run_command.h"

#include <gtest/gtest.h>

#include "support/project.h"

using namespace korvane;

namespace {

struct StatusLog : StatusSink {
  std::vector<std::string> texts;
  void status(const std::string& t) override { texts.push_back(t); }
};

struct RunCommand : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
  StatusLog status;
  RunSettings settings;
  void SetUp() override { c.ctx.statusSink = &status; }
  std::vector<std::string> entries(std::initializer_list<const char*> names) {
    std::vector<std::string> e;
    for (auto n : names) e.push_back(project.path(n));
    return e;
  }
};

TEST_F(RunCommand, AnEmptyListDoesNothing) {
  project.write("complete.inp", "old");
  RunOutcome o = runEntries(c.ctx, {}, settings);
  EXPECT_EQ(o.entriesRun, 0u);
  EXPECT_EQ(project.read("complete.inp"), "old");
  EXPECT_TRUE(status.texts.empty());
}

TEST_F(RunCommand, EngineErrorsStopTheRunWithTheEnginesMessage) {
  project.write("a.ipf", "crea,a\n");
  c.engine.leaveSentinel = true;
  c.engine.failWith = "line 2: crea,a: refused";
  RunOutcome o = runEntries(c.ctx, entries({"a.ipf", "a.ipf"}), settings);
  EXPECT_TRUE(o.stopped);
  EXPECT_EQ(o.stoppedAt, 0u);
  EXPECT_EQ(o.message,
            "MX stopped before the end of the input. The MX report shows the failing line.\n"
            "MX stopped with an error: line 2: crea,a: refused\n" +
                project.path("a.ipf") + ", line 1");
  // The next run removes the sentinel left behind before it begins.
  c.engine.leaveSentinel = false;
  c.engine.failWith.clear();
  c.engine.runs.clear();
  o = runEntries(c.ctx, entries({"a.ipf"}), settings);
  EXPECT_FALSE(o.stopped);
  ASSERT_EQ(c.engine.runs.size(), 2u);
  EXPECT_EQ(c.engine.runs[0], "dele,it is just a flag model\r\n");
}

}  // namespace
