// Where compiled lines come from: an engine error is reported at the input
// line that wrote the refused MX line, with the inserts and repetitions that
// led there; run-time failures inside inserted files name the inserting lines.
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
  void writeThreeDeep() {
    project.write("a.ipf", "crea,a\r\ninsert,b\r\nrepeat=2\r\n");
    project.write("b.ipm", "repeat\r\ninsert,c.\r\nendrepeat\r\n");
    project.write("c.ipm", "crea,c1\r\ninsert,d.\r\n");
    project.write("d.ipm", "crea,d1\r\ninsrt,axis\r\n");
  }
  std::string fmt(const char* section, const char* key, const std::string& a1 = {},
                  const std::string& a2 = {}) {
    return c.ctx.messages.format(section, key, a1, a2);
  }
};

TEST(SourceMap, PlacesAreChainedThroughTheFilesThatEnteredThem) {
  SourceMap m;
  EXPECT_EQ(m.here().node, SourceMap::kNone);
  m.enter("a", 0);
  m.atLine(4);
  const SourceOrigin a4 = m.here();
  m.enter("b", 3);
  m.atLine(2);
  const SourceOrigin b2 = m.here();
  m.leave();
  m.atLine(5);
  EXPECT_EQ(m.here().node, a4.node);  // one reading of a file is one node
  EXPECT_EQ(m.here().line, 5);
  m.enter("b", 4);  // the next pass is another reading
  m.atLine(2);
  EXPECT_NE(m.here().node, b2.node);
  m.leave();
  auto chain = m.chain(b2);
  ASSERT_EQ(chain.size(), 2u);
  EXPECT_EQ(chain[0].file, "b");
  EXPECT_EQ(chain[0].line, 2);
  EXPECT_EQ(chain[0].repetition, 3);
  EXPECT_EQ(chain[1].file, "a");
  EXPECT_EQ(chain[1].line, 4);
  EXPECT_EQ(chain[1].repetition, 0);
}

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
  writeThreeDeep();
  // The MX input: sentinel, crea,a, then per pass crea,c1 crea,d1 insrt,axis.
  // Line 8 is the second pass's insrt,axis.
  c.engine.leaveSentinel = true;
  c.engine.failWith = "line 8: unknown major option";
  c.engine.failLine = 8;
  EXPECT_FALSE(c.compile("a.ipf"));
  const std::string expected =
      fmt("Messages", "s5") + "\n" + fmt("Runtime", "engine", c.engine.failWith) + "\n" +
      fmt("Runtime", "where", project.path("d.ipm"), "2") + "\n" +
      fmt("Runtime", "text", "insrt,axis") + "\n" + fmt("Diagnostics", "mxline", "insrt,axis") +
      "\n" + fmt("Diagnostics", "inserted", project.path("c.ipm"), "2") + "\n" +
      fmt("Diagnostics", "inserted", project.path("b.ipm"), "2") + " " +
      fmt("Diagnostics", "pass", "2") + "\n" +
      fmt("Diagnostics", "inserted", project.path("a.ipf"), "2");
  EXPECT_EQ(c.ctx.stop.message, expected);

  c.engine.failLine = 5;  // the first pass
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_NE(c.ctx.stop.message.find(fmt("Diagnostics", "pass", "1")), std::string::npos)
      << c.ctx.stop.message;
  EXPECT_EQ(c.ctx.stop.message.find(fmt("Diagnostics", "pass", "2")), std::string::npos);

  c.engine.failLine = 1;  // the sentinel line has no place in the input
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.ctx.stop.message.find(fmt("Diagnostics", "mxline", "")), std::string::npos);
}

TEST_F(SourceMapping, ARunTimeFailureInAMacroNamesTheLinesThatInsertedIt) {
  project.write("a.ipf", "crea,a\r\ninsert,m.\r\n");
  project.write("m.ipm", "crea,m\r\nlet,x=1/0,\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));
  const std::string tail = fmt("Runtime", "where", project.path("m.ipm"), "2") + "\n" +
                           fmt("Runtime", "text", "let,x=1/0,") + "\n" +
                           fmt("Diagnostics", "inserted", project.path("a.ipf"), "2");
  const std::string& m = c.ctx.stop.message;
  ASSERT_GE(m.size(), tail.size());
  EXPECT_EQ(m.substr(m.size() - tail.size()), tail) << m;
}

// The embedded engine, through the program: the same chain, the failing MX line
// shown, and no sentinel model left in the store.
struct SourceMapCli : test::CliProject {};

TEST_F(SourceMapCli, TheEmbeddedEngineReportsTheInputLineAndLeavesNoSentinel) {
  project.write("a.ipf", "crea,a\r\ninsert,b\r\nrepeat=2\r\n");
  project.write("b.ipm", "repeat\r\ninsert,c.\r\nendrepeat\r\n");
  project.write("c.ipm", "crea,c1\r\ninsert,d.\r\n");
  project.write("d.ipm", "crea,d1\r\ninsrt,axis\r\n");
  EXPECT_EQ(run("run a.ipf"), 1);
  const Messages hu(home + "/Hungarian.lng");
  const std::string err = this->err();
  for (const std::string& want : {hu.format("Runtime", "where", project.path("d.ipm"), "2"),
                                  hu.format("Diagnostics", "mxline", "insrt,axis"),
                                  hu.format("Diagnostics", "inserted", project.path("c.ipm"), "2"),
                                  hu.format("Diagnostics", "inserted", project.path("b.ipm"), "2") +
                                      " " + hu.format("Diagnostics", "pass", "1"),
                                  hu.format("Diagnostics", "inserted", project.path("a.ipf"), "2")})
    EXPECT_NE(err.find(test::asShown(want)), std::string::npos) << want << "\n" << err;
  EXPECT_NE(project.read("tmpinput.txt").find("insrt,axis"), std::string::npos);
  EXPECT_FALSE(project.exists("tmpflag.txt"));
  ASSERT_EQ(run("models list"), 0);
  EXPECT_EQ(project.read("out.txt").find("it is just a flag model"), std::string::npos)
      << project.read("out.txt");
  EXPECT_TRUE(std::regex_search(project.read("out.txt"), std::regex("\na +0 +0\n")))
      << project.read("out.txt");  // made before the error
}

}  // namespace
