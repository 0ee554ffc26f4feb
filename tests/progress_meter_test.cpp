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
  meter.engineRun(3);
  now += milliseconds(200);
  meter.engineRun(4);
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_EQ(shown[1], en.format({"Cli", "progress_at"}, "part.ipm", "7") + "  " +
                          en.format({"Cli", "progress_counts"}, "3001", "4"));
  // Back in the outer file, at the line it stood at.
  meter.fileLeft();
  EXPECT_EQ(meter.text(), en.format({"Cli", "progress_at"}, "road.ipf", "1000") + "  " +
                              en.format({"Cli", "progress_counts"}, "3001", "4"));
}

TEST_F(Meter, ANewEntryCountsAfresh) {
  meter.fileEntered("/p/a.ipf");
  read(10);
  meter.engineRun(2);
  meter.startEntry();
  EXPECT_EQ(meter.text(), en.format({"Cli", "progress_counts"}, "0", "0"));
  EXPECT_EQ(meter.linesCompiled(), 0);
}

}  // namespace
}  // namespace korvane::test
