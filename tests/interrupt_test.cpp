// Ctrl-C in the middle of a large engine run: the run is rolled back whole,
// the message names the entry and where the engine had got to, and the
// program ends with exit status 130.
#include <filesystem>

#include "support/cli.h"
#include "support/process.h"

using namespace korvane::test;

namespace {

// 166 667 data records of six 2-dimensional points each, a string.
std::string pointString(const std::string& label) {
  return "080," + label + ",,7=2\r\ninsert,rows\r\nrepeat=166667\r\n" + std::string(12, '0') +
         "\r\n";
}

}  // namespace

TEST_F(CliProject, CtrlCRollsBackTheEngineRunInProgressAndEndsWith130) {
#ifdef _WIN32
  GTEST_SKIP() << "Ctrl-C cannot be sent to one process of a console from a test here";
#endif
  std::string row;
  for (int i = 0; i < 12; ++i) row += "       1.0";
  project.write("inputs/rows.ipm", "repeat\r\n" + row + "\r\nendrepeat\r\n");
  project.write("inputs/keep.ipf", "crea,KEEP\r\n");
  // KEEP goes first; a string of a million points is stored, then the second is read.
  project.write("inputs/big.ipf",
                "dele,KEEP\r\ngeni,BIG\r\n001FORMAT(12F10.1)\r\n"
                "003,ORDR,4=6,1,2,1,2,1,2,1,2,1,2,1,2\r\n" +
                    pointString("S1") + pointString("S2") + "999\r\n");
  ASSERT_EQ(run("run inputs/keep.ipf"), 0);
  const std::string before = project.read("korvane-models.db");

  ProgramRun big;
  big.argv = {builtProgram("korvane"), "run", "inputs/big.ipf", "--lang", "en", "--home", home};
  big.folder = project.folder();
  big.out = project.path("out.txt");
  big.err = project.path("err.txt");
  // The first string is in the store's log: the run is well under way.
  const std::filesystem::path log = project.path("korvane-models.db-wal");
  big.interruptWhen = [&] {
    std::error_code ec;
    return std::filesystem::file_size(log, ec) > (1u << 20) && !ec;
  };
  EXPECT_EQ(runProgram(big), 130);
  EXPECT_TRUE(project.read("korvane-models.db") == before) << "the store changed";

  // The place is the line the engine would have run next: past the first string.
  const std::string entry = project.path("inputs/big.ipf");
  const std::string stop = "The run was interrupted in the entry " + entry + "\n";
  EXPECT_EQ(err().substr(0, stop.size()), stop);
  EXPECT_NE(err().find("\nMX line: "), std::string::npos) << err();
  EXPECT_NE(out().find("Stopped at entry 1"), std::string::npos) << out();
  EXPECT_NE(project.read("korvane-engine.lst").find("run interrupted before line"),
            std::string::npos);
}
