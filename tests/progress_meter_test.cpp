// The live progress of a run: where the compile stands and how far it has
// come, handed out no more often than its interval.
#include "shell/progress_meter.h"

#include <gtest/gtest.h>

#include "support/project.h"

namespace korvane::test {
namespace {

using std::chrono::milliseconds;

struct Meter : ::testing::Test {
  Messages en{sourceDir() + "/data/English.lng"};
  std::chrono::steady_clock::time_point now{};
  std::vector<std::string> shown;
  ProgressMeter meter{en, milliseconds(200), [this](const std::string& t) { shown.push_back(t); },
                      [this] { return now; }};

  void read(long lines) {
    for (long i = 1; i <= lines; ++i) meter.lineRead(i, "crea,A");
  }
};

TEST_F(Meter, ShowsWhereTheCompileStandsAtMostOnceAnInterval) {
  meter.fileEntered("/p/inputs/road.ipf");
  read(1000);
  EXPECT_TRUE(shown.empty());  // no time has passed
  now += milliseconds(250);
  read(1000);  // lines 1..1000 again: looks at the clock every few hundred
  ASSERT_EQ(shown.size(), 1u);
  now += milliseconds(100);
  read(1000);
  EXPECT_EQ(shown.size(), 1u);  // within the interval: nothing
  meter.fileEntered("/p/part.ipm");
  meter.lineRead(7, "crea,B");
  meter.engineRun({3, "getchain", "/p/part.ipm", 7});
  now += milliseconds(200);
  meter.engineRun({4, "getchain", "/p/part.ipm", 7});
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1], "part.ipm, line 7  3001 lines compiled, 4 MX runs (getchain, part.ipm:7)");
  // Back in the outer file, at the line it stood at.
  meter.fileLeft();
  EXPECT_EQ(meter.text(),
            "road.ipf, line 1000  3001 lines compiled, 4 MX runs (getchain, part.ipm:7)");
}

TEST_F(Meter, TheSummaryCountsWhatAskedForTheRunsTogether) {
  meter.fileEntered("/p/a.ipf");
  read(1);
  for (int run = 1; run <= 500; ++run) meter.engineRun({run, "getchain", "/p/a.ipf", 12});
  meter.engineRun({501, "xlget", "/p/a.ipf", 20});
  meter.engineRun({502, "", "/p/a.ipf", 30});
  EXPECT_EQ(meter.summary(),
            "1 line compiled, 502 MX runs: getchain, a.ipf:12 \xd7"
            "500; xlget, a.ipf:20; end of the "
            "entry");
  meter.startEntry();
  meter.engineRun({1, "", "/p/a.ipf", 1});
  EXPECT_EQ(meter.summary(), "0 lines compiled, 1 MX run: end of the entry");
}

TEST_F(Meter, ANewEntryCountsAfresh) {
  meter.fileEntered("/p/a.ipf");
  read(10);
  meter.engineRun({2, "getpoint", "/p/a.ipf", 3});
  meter.startEntry();
  EXPECT_EQ(meter.text(), "0 lines compiled, 0 MX runs");
  EXPECT_EQ(meter.linesCompiled(), 0);
}

}  // namespace
}  // namespace korvane::test
