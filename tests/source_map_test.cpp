// Where compiled lines come from: an engine error is reported at the input
// line that wrote the refused MX line, with the inserts and repetitions that
// led there. A run-time failure inside an inserted file is the golden case
// failure_in_an_inserted_file.
#include "compiler/source_map.h"

#include <gtest/gtest.h>

#include <regex>

#include "base/codepage.h"
#include "compiler/compiled_output.h"
#include "support/cli.h"
#include "support/project.h"

using namespace korvane;

namespace {

struct SourceMapping : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};

  // a.ipf inserts b twice; each pass of b inserts c, which inserts d, whose
  // second line MX does not know.
  static void writeThreeDeep(const test::TempProject& project) {
    project.write("a.ipf", "crea,a\r\ninsert,b\r\nrepeat=2\r\n");
    project.write("b.ipm", "repeat\r\ninsert,c.\r\nendrepeat\r\n");
    project.write("c.ipm", "crea,c1\r\ninsert,d.\r\n");
    project.write("d.ipm", "crea,d1\r\ninsrt,axis\r\n");
  }
  // The lines of the message from the refused line's place on, in English.
  static std::string refusedAt(const test::TempProject& project, int pass) {
    return project.path("d.ipm") + ", line 2\nLine: insrt,axis\nMX line: insrt,axis\ninserted by " +
           project.path("c.ipm") + ", line 2\ninserted by " + project.path("b.ipm") +
           ", line 2 (pass " + std::to_string(pass) + " of the repetition)\ninserted by " +
           project.path("a.ipf") + ", line 2";
  }
};

// The output keeps the places of its lines in runs; every line must still get
// its own place back, whatever mix of plain lines, many lines from one line and
// lines from nowhere was written.
TEST(SourceMap, EveryOutputLineGetsItsPlaceBackFromTheRuns) {
  test::TempProject project;
  SourceMap m;
  CompiledOutput out;
  out.setSourceMap(&m);
  out.open(project.path("tmpinput.txt"));
  std::vector<SourceOrigin> written;
  auto write = [&](const char* text) {
    out.writeLine(text);
    written.push_back(isSentinelLine(text) ? SourceOrigin{} : m.here());
  };
  write(std::string(kSentinelCreate).c_str());
  m.enter("a", 0);
  for (long line : {1, 2, 3, 3, 3, 7, 8, 8, 9, 10, 4}) {
    m.atLine(line);
    write("crea,x");
  }
  m.enter("b", 1);
  m.atLine(1);
  write("crea,y");
  m.leave();
  m.enter("b", 2);
  m.atLine(1);
  write("crea,y");
  write(std::string(kSentinelDelete).c_str());
  m.leave();
  m.atLine(11);
  write("crea,z");
  for (std::size_t i = 0; i < written.size(); ++i) {
    SCOPED_TRACE(i + 1);
    EXPECT_EQ(out.originOfLine(static_cast<long>(i) + 1), written[i]);
  }
  EXPECT_EQ(out.originOfLine(0).node, SourceMap::kNone);
  EXPECT_EQ(out.originOfLine(static_cast<long>(written.size()) + 1).node, SourceMap::kNone);
  EXPECT_EQ(m.nodeCount(), 3u);
}

TEST_F(SourceMapping, AnEngineErrorNamesTheInputLineThreeInsertsDeep) {
  writeThreeDeep(project);
  // The MX input: sentinel, crea,a, then per pass crea,c1 crea,d1 insrt,axis.
  // Line 8 is the second pass's insrt,axis.
  c.engine.leaveSentinel = true;
  c.engine.failWith = "line 8: unknown major option";
  c.engine.failLine = 8;
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.stopMessage(),
            "MX stopped before the end of the input. The MX report shows the failing line.\n"
            "MX stopped with an error: line 8: unknown major option\n" +
                refusedAt(project, 2));

  c.engine.failLine = 5;  // the first pass
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_TRUE(c.stopMessage().ends_with(refusedAt(project, 1))) << c.stopMessage();

  c.engine.failLine = 1;  // the sentinel line has no place in the input
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.stopMessage().find("MX line"), std::string::npos) << c.stopMessage();
}

// The embedded engine, through the program: the same chain, the failing MX line
// shown, and no sentinel model left in the store.
struct SourceMapCli : test::CliProject {};

TEST_F(SourceMapCli, TheEmbeddedEngineReportsTheInputLineAndLeavesNoSentinel) {
  SourceMapping::writeThreeDeep(project);
  EXPECT_EQ(run("--lang en run a.ipf"), 1);
  EXPECT_NE(err().find(SourceMapping::refusedAt(project, 1)), std::string::npos) << err();
  EXPECT_NE(project.read("tmpinput.txt").find("insrt,axis"), std::string::npos);
  EXPECT_FALSE(project.exists("tmpflag.txt"));
  ASSERT_EQ(run("models list"), 0);
  EXPECT_EQ(project.read("out.txt").find("it is just a flag model"), std::string::npos)
      << project.read("out.txt");
  EXPECT_TRUE(std::regex_search(project.read("out.txt"), std::regex("\na +0 +0\n")))
      << project.read("out.txt");  // made before the error
}

}  // namespace
