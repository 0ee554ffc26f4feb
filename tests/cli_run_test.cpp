// `korvane run` end to end with the embedded engine, on the example project
// (the settings found through KORVANE_HOME) and on inputs that end badly. How
// an engine error is reported is tests/source_map_test.cpp; that the entries
// after it do not run, tests/run_command_test.cpp.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/cli.h"

namespace korvane::test {
namespace {

struct CliRun : ExampleProject {
  CliRun() { homeFromEnvironment = true; }
  // Whether `models list` lists the model with so many strings and points.
  bool listed(const std::string& model, int strings, int points) {
    EXPECT_EQ(run("models list"), 0) << err();
    std::istringstream lines(out());
    for (std::string line; std::getline(lines, line);) {
      int s = -1, p = -1;
      std::istringstream(line.substr(std::min(line.size(), model.size()))) >> s >> p;
      if (line.rfind(model + " ", 0) == 0 && s == strings && p == points) return true;
    }
    return false;
  }
};

// What the example's queries read is in example_road.compiled; here the runs
// change the models.
TEST_F(CliRun, TheExampleProjectRunsThroughTheEmbeddedEngine) {
  ASSERT_EQ(run("models import survey/ground.genio GROUND"), 0) << err();
  ASSERT_EQ(run("run 'inputs/road.ipf [main]' 'inputs/road.ipf [ground]' inputs/road.ipf [trim] "
                "--save-one"),
            0)
      << err();
  EXPECT_NE(out().find("[1/3]"), std::string::npos) << out();
  EXPECT_NE(out().find("[3/3]"), std::string::npos) << out();
  EXPECT_NE(out().find("complete.inp"), std::string::npos) << out();
  const std::string combined = project.read("complete.inp");
  EXPECT_NE(combined.find("GR03: 6 points, 100 m,"), std::string::npos) << combined;
  EXPECT_EQ(combined.find("it is just a flag model"), std::string::npos);
  // MAST, GRND and the left edge string E000 that getfreelabel named; GR03 cut to 4 points.
  EXPECT_TRUE(listed("DESIGN M1", 3, 14)) << out();
  EXPECT_TRUE(listed("GROUND", 3, 16)) << out();
}

// The example's drawing copy and its cross sections cut back at the road edge.
TEST_F(CliRun, TheExampleRelabelsIntoTheDrawingAndTrimsItsSections) {
  ASSERT_EQ(run("run 'inputs/road.ipf [main]'"), 0) << err();
  ASSERT_EQ(run("models sections 'DESIGN M1' MAST SECTIONS --interval 20 --width 12"), 0);
  ASSERT_EQ(run("models show SECTIONS X002"), 0);
  // Across the master, the left edge 3.5 m off it, the ground string beyond.
  EXPECT_NE(out().find("'GRND'"), std::string::npos) << out();
  // [drawing] names the design through g_road, which [main] sets in the same run.
  ASSERT_EQ(run("run 'inputs/road.ipf [main]' 'inputs/road.ipf [drawing]' "
                "'inputs/road.ipf [sections]'"),
            0)
      << err();
  ASSERT_EQ(run("models show DRAWING"), 0);
  EXPECT_NE(out().find("ASTM\t3\t6"), std::string::npos) << out();  // MAST under order 2341
  EXPECT_NE(out().find("RNDG\t3\t6"), std::string::npos) << out();
  ASSERT_EQ(run("models show SECTIONS X002"), 0);
  EXPECT_NE(out().find("'MAST'"), std::string::npos) << out();
  EXPECT_NE(out().find("'E000'"), std::string::npos) << out();
  EXPECT_EQ(out().find("'GRND'"), std::string::npos) << out();  // the run beyond the edge went
}

// SQLite's files beside the store that are still there: none may stay once
// korvane has ended, however its run ended.
std::string storeLeftovers(const TempProject& p) {
  std::string found;
  for (const char* suffix : {"-journal", "-wal", "-shm"})
    if (p.exists(std::string("korvane-models.db") + suffix)) found += suffix;
  return found;
}

TEST_F(CliRun, NoJournalOrLogStaysBesideTheStoreHoweverTheRunEnds) {
  project.write("good.ipf", "crea,A\n");
  // Each of these runs the engine (the query), then ends badly.
  const char* const ending[] = {
      "crea,B\nnonsense,record\n",                               // MX refuses a line
      "crea,C\n#n=getpoint(C,S,1,num,1)\ninsert,missing.ipm\n",  // a message stops it
      "crea,D\n#n=getpoint(D,S,1,num,1)\n#x=1/0\n",              // a run-time error
  };
  ASSERT_EQ(run("run good.ipf"), 0) << err();
  ASSERT_TRUE(project.exists("korvane-models.db"));
  EXPECT_EQ(storeLeftovers(project), "");
  for (const char* input : ending) {
    project.write("bad.ipf", input);
    EXPECT_EQ(run("run bad.ipf"), 1) << input;
    EXPECT_EQ(storeLeftovers(project), "") << input;
  }
  // An empty journal, as a process that ended while making the store left it,
  // goes with the next run.
  project.write("korvane-models.db-journal", "");
  ASSERT_EQ(run("run good.ipf"), 0) << err();
  EXPECT_EQ(storeLeftovers(project), "");
  EXPECT_TRUE(listed("D", 0, 0)) << out();
}

TEST_F(CliRun, BatchModeRunsTheWordsAsOneEntryAndScriptsNeedAutoCadUnlessKept) {
  project.write("a b.ipf", "[main]\ncrea,BATCH\n");
  EXPECT_EQ(run("a b.ipf [main]"), 0) << err();
  EXPECT_TRUE(listed("BATCH", 0, 0)) << out();
  project.write("s.ipf", "crea,S\nscript\n_line 0,0 1,1\n\nendscript\n");
  EXPECT_EQ(run("run s.ipf"), 1);
  EXPECT_EQ(run("run s.ipf --keep-scripts"), 0) << err();
  EXPECT_EQ(project.read("script001.scr"), "_line 0,0 1,1\r\n\r\n");
}

}  // namespace
}  // namespace korvane::test
