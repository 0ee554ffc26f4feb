// The Run command: entries in order until one stops, save files and status.
#include "shell/run_command.h"

#include <gtest/gtest.h>

#include "support/project.h"

using namespace korvane;

namespace {

struct StatusLog : StatusSink {
  std::vector<std::string> texts;
  void status(const std::string& t) override { texts.push_back(t); }
};

struct Progress : RunProgress {
  std::vector<std::string> events;
  void entryStarted(std::size_t i, std::size_t, const std::string&) override {
    events.push_back("entry " + std::to_string(i));
  }
  void engineRun(std::size_t i, int run) override {
    events.push_back("run " + std::to_string(i) + "." + std::to_string(run));
  }
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

TEST_F(RunCommand, AStopInTheSecondOfThreeEntriesLeavesTheThirdUnrun) {
  project.write("a.ipf", "#g_seen=a\ncrea,a\n");
  project.write("b.ipf", "crea,b|g_seen|\ninsert,missing.\n");
  project.write("c.ipf", "crea,c\n");
  Progress progress;
  RunOutcome o = runEntries(c.ctx, entries({"a.ipf", "b.ipf", "c.ipf"}), settings, &progress);
  EXPECT_TRUE(o.stopped);
  EXPECT_EQ(o.stoppedAt, 1u);
  EXPECT_EQ(o.entriesRun, 1u);
  EXPECT_EQ(o.message,
            "File not found: missing.ipm (not in the input's folder, the project folder or the "
            "macro folders)");
  EXPECT_EQ(c.lines, (std::vector<std::string>{"crea,a", "crea,ba"}));
  EXPECT_EQ(progress.events, (std::vector<std::string>{"entry 0", "run 0.1", "entry 1"}));
  EXPECT_EQ(status.texts.back(), "Ready");  // back to idle
}

TEST_F(RunCommand, AnEmptyListDoesNothing) {
  project.write("complete.inp", "old");
  RunOutcome o = runEntries(c.ctx, {}, settings);
  EXPECT_EQ(o.entriesRun, 0u);
  EXPECT_EQ(project.read("complete.inp"), "old");
  EXPECT_TRUE(status.texts.empty());
}

TEST_F(RunCommand, SaveFilesHoldTheCompiledLinesWithoutSentinels) {
  project.write("complete.inp", "stale from the last run\r\n");
  project.write("a.ipf", "crea,a1\nkill,x\n   marker\n   marker\ncrea,a2\n");
  project.write("b.ipf", "crea,b1\n");
  settings.saveOne = settings.saveSeparate = true;
  RunOutcome o = runEntries(c.ctx, entries({"a.ipf", "b.ipf"}), settings);
  ASSERT_FALSE(o.stopped) << o.message;
  EXPECT_EQ(project.read("complete.inp"), "\r\n   Input file:   " + project.path("a.ipf") +
                                              "\r\ncrea,a1\r\n   marker\r\ncrea,a2\r\n"
                                              "\r\n\r\n\r\n   Input file:   " +
                                              project.path("b.ipf") + "\r\ncrea,b1\r\n");
  EXPECT_EQ(project.read("compiled_a.inp"), "crea,a1\r\n   marker\r\ncrea,a2\r\n");
  EXPECT_EQ(project.read("compiled_b.inp"), "crea,b1\r\n");
}

TEST_F(RunCommand, SaveFilesKeepWhatWasCompiledBeforeAFailure) {
  project.write("a.ipf", "crea,a1\nlet,x=1/0,\ncrea,never\n");
  settings.saveOne = true;
  RunOutcome o = runEntries(c.ctx, entries({"a.ipf"}), settings);
  EXPECT_TRUE(o.stopped);
  EXPECT_NE(project.read("complete.inp").find("crea,a1\r\n"), std::string::npos);
  EXPECT_EQ(project.read("complete.inp").find("never"), std::string::npos);
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
