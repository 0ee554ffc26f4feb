// Bad input ends the compile with a message that names the file and line, and
// what was compiled before stays written. The message of each kind of bad line
// is a golden case.
#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include "compiler/compile_failure.h"
#include "compiler/line_reader.h"
#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

struct Failures : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};

  // Compiles a file expected to fail at run time; returns the failure's text.
  std::string failure(const std::string& file) {
    EXPECT_FALSE(c.compile(file));
    EXPECT_TRUE(c.ctx.failure.has_value()) << c.ctx.stop.message;
    return c.ctx.failure ? c.ctx.failure->description : "";
  }
};

TEST_F(Failures, RuntimeFailuresNameFileLineAndText) {
  project.write("m.ipm", "crea,ok\r\n\r\nlet,x=1/0,\r\n");
  project.write("a.ipf", "crea,first\r\ninsert,m.\r\ncrea,never\r\n");
  EXPECT_EQ(failure("a.ipf"), c.ctx.text("Runtime", "div0"));
  EXPECT_EQ(c.ctx.failure->file, project.path("m.ipm"));
  EXPECT_EQ(c.ctx.failure->line, 3);
  EXPECT_EQ(c.ctx.failure->lineText, "let,x=1/0,");
  EXPECT_NE(c.ctx.stop.message.find(project.path("m.ipm")), std::string::npos);
  EXPECT_EQ(c.lines, (Lines{"crea,first", "crea,ok"}));
  EXPECT_NE(project.read("tmpinput.txt").find("crea,ok\r\n"), std::string::npos);
}

TEST_F(Failures, ALongLineIsQuotedShort) {
  const std::string line = "let,x=1/0,y=" + std::string(60000, 'y') + ",";
  project.write("long.ipf", line + "\r\n");
  failure("long.ipf");
  ASSERT_TRUE(c.ctx.failure);
  EXPECT_TRUE(c.ctx.failure->lineText == line);  // kept whole for the front ends
  const std::string& shown = c.ctx.stop.message;
  EXPECT_LT(shown.size(), 1000u);
  EXPECT_NE(shown.find(line.substr(0, kQuotedTextLength) + "..."), std::string::npos)
      << shown.substr(0, 1000);
}

TEST_F(Failures, TheVariableTableHoldsTwoThousandNames) {
  std::string body;
  for (int i = 0; i < 2000; ++i) body += "let,v" + std::to_string(i) + "=1,\r\n";
  project.write("ok.ipf", body);
  EXPECT_TRUE(c.compile("ok.ipf"));
  project.write("full.ipf", body + "let,one_more=1,\r\n");
  EXPECT_EQ(failure("full.ipf"), c.ctx.text("Runtime", "vars"));
}

TEST_F(Failures, AnInsertOfItselfStopsAtAFixedDepth) {
  project.write("self.ipm", "crea,again\r\ninsert,self.\r\n");
  project.write("a.ipf", "insert,self.\r\n");
  std::string got = failure("a.ipf");
  EXPECT_NE(got.find("100"), std::string::npos);
  EXPECT_EQ(c.lines.size(), 99u);
  // The insert that went one level too deep is named with its own text.
  ASSERT_TRUE(c.ctx.failure);
  EXPECT_EQ(c.ctx.failure->file, project.path("self.ipm"));
  EXPECT_EQ(c.ctx.failure->line, 2);
  EXPECT_EQ(c.ctx.failure->lineText, "insert,self.");
}

TEST_F(Failures, BinaryFilesAndHugeLinesAreRefused) {
  project.write("bin.ipf", std::string("crea,a\r\n\x01\x02\0\x03", 12));
  EXPECT_EQ(failure("bin.ipf"),
            c.ctx.messages.format("Runtime", "binary", project.path("bin.ipf")));
  project.write("huge.ipf", "crea,a\r\n" + std::string(1 << 20, 'x') + "\r\n");
  c.lines.clear();
  EXPECT_EQ(failure("huge.ipf"),
            c.ctx.messages.format("Runtime", "linelen", std::to_string(LineReader::kMaxLine)));
  EXPECT_EQ(c.lines, (Lines{"crea,a"}));
}

TEST_F(Failures, ARefusedLineIsNotShownWithTheTextOfTheLineBefore) {
  project.write("bin.ipf", std::string("crea,a\r\nx\0y\r\n", 13));
  failure("bin.ipf");
  ASSERT_TRUE(c.ctx.failure);
  EXPECT_EQ(c.ctx.failure->line, 2);
  EXPECT_EQ(c.ctx.failure->lineText, "");
  EXPECT_EQ(c.ctx.stop.message.find("crea,a"), std::string::npos) << c.ctx.stop.message;
}

TEST_F(Failures, KillDeletesFilesAndLeavesFoldersAlone) {
  project.write("old.txt", "x");
  project.write("empty/.keep", "");
  std::filesystem::remove(project.path("empty/.keep"));
  project.write("a.ipf", "kill,old.txt\r\nkill,empty\r\n");
  EXPECT_TRUE(c.compile("a.ipf")) << c.ctx.stop.message;
  EXPECT_FALSE(project.exists("old.txt"));
  EXPECT_TRUE(std::filesystem::is_directory(project.path("empty")));
}

TEST_F(Failures, InterruptionEndsTheRunAtTheNextLine) {
  std::atomic<bool> interrupted{true};
  c.ctx.interrupted = &interrupted;
  project.write("a.ipf", "crea,a\r\n");
  EXPECT_EQ(failure("a.ipf"), c.ctx.text("Runtime", "interrupted"));
  EXPECT_TRUE(c.lines.empty());
}

TEST_F(Failures, APrintFileThatIsAFolderCannotBeWritten) {
  project.write("out/keep.txt", "x");
  project.write("a.ipf", "crea,a\r\nprint,out\r\nline\r\nendprint\r\n");
  EXPECT_EQ(failure("a.ipf"), c.ctx.messages.format("Runtime", "write", project.path("out")));
  EXPECT_EQ(c.ctx.failure->line, 2);
  EXPECT_EQ(project.read("out/keep.txt"), "x");
}

TEST_F(Failures, AnEngineThatStopsEarlyIsReportedWithWhereTheCompileStood) {
  c.engine.leaveSentinel = true;
  c.engine.failWith = "line 2: refused";
  project.write("a.ipf", "crea,a\r\nkill,x\r\ncrea,b\r\n");
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_NE(c.ctx.stop.message.find("line 2: refused"), std::string::npos);
  EXPECT_NE(c.ctx.stop.message.find(
                c.ctx.messages.format("Runtime", "where", project.path("a.ipf"), "2")),
            std::string::npos)
      << c.ctx.stop.message;
  EXPECT_EQ(c.lines, (Lines{"crea,a"}));  // the run stopped at the flush
}

// A missing insert is the golden case missing_macro_stops.
TEST_F(Failures, AMissingInputFileStops) { EXPECT_FALSE(c.compile("missing.ipf")); }

}  // namespace
