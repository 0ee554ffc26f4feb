// What the compile pass does beyond one input's lines: run entries with a
// section, the search for inserted files, the output channels' files, the
// variables carried between entries and the flush. The lines of single
// inputs are golden cases in tests/cases.
#include <gtest/gtest.h>

#include "support/project.h"

using namespace korvane;
using Lines = std::vector<std::string>;

namespace {

std::string crlf(std::initializer_list<const char*> lines) {
  std::string s;
  for (auto l : lines) s += std::string(l) + "\r\n";
  return s;
}

struct CompilePass : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
};

TEST_F(CompilePass, ARunEntryNamesASectionOfItsFile) {
  project.write("a.ipf", crlf({"crea,top", "[Main]", "crea,main", "[end]", "crea,end"}));
  ASSERT_TRUE(c.compile("a.ipf [main]"));  // labels compare ignoring case
  EXPECT_EQ(c.lines, (Lines{"crea,main"}));
}

TEST_F(CompilePass, InsertSearchesBaseProjectInputsAndMacroFolders) {
  test::TempProject macros;
  test::Compiler m{project,
                   {{"ProjectMacros", macros.folder() + "/proj"},
                    {"PrivateMacros", macros.folder() + "/priv"},
                    {"PublicMacros", macros.folder() + "/pub"}}};
  project.write("inputs/in.ipm", crlf({"crea,from inputs", "insert,near"}));
  project.write("inputs/near.ipm", crlf({"crea,near inputs"}));
  project.write("near.ipm", crlf({"crea,near project"}));
  macros.write("proj/pm.ipm", crlf({"crea,project macro"}));
  macros.write("priv/pm.ipm", crlf({"crea,private macro"}));
  macros.write("priv/only.ipm", crlf({"crea,private only"}));
  macros.write("pub/pub.ipm", crlf({"crea,public"}));
  macros.write("proj/x.inp", crlf({"crea,inp in macros"}));
  project.write("a.ipf", crlf({"insert,in.", "insert,pm.", "insert,only.", "insert,pub."}));
  project.write("b.ipf", crlf({"insert,x.inp."}));
  EXPECT_FALSE(m.compile("a.ipf"));
  EXPECT_EQ(m.lines, (Lines{"crea,from inputs", "crea,near inputs", "crea,project macro",
                            "crea,private only"}));
  EXPECT_EQ(m.stopMessage(),
            "File not found: pub.ipm (not in the input's folder, the project folder or the macro "
            "folders)");
  EXPECT_FALSE(m.compile("b.ipf"));  // other extensions: three places only
}

TEST_F(CompilePass, WindowsNamesFindFilesOnACaseSensitiveDisk) {
  project.write("Macros/Sub.IPM", crlf({"crea,found"}));
  project.write("a.ipf", "insert," + project.folder() + "\\macros\\sub.IPM.\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,found"}));
}

TEST_F(CompilePass, BlankLinesAreDroppedFromMxInputButKeptInOtherOutputs) {
  project.write("a.ipf", crlf({"crea,a", "", "   ", "print,list.txt", "x", "", "endprint",
                               "print,list.txt,append", "y", "endprint", "crea,b"}));
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.lines.front(), "crea,a");
  EXPECT_EQ(c.lines.back(), "crea,b");
  EXPECT_EQ(project.read("list.txt"), "x\r\n\r\ny\r\n");
}

TEST_F(CompilePass, ScriptWithoutAutoCadStopsWithItsMessageAfterWritingTheScript) {
  project.write("a.ipf", crlf({"crea,a", "script", "_line", "", "endscript", "crea,never"}));
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(project.read("tmpinput.scr"), "_line\r\n\r\n");  // the Enter stays in a script
  EXPECT_EQ(c.stopMessage(),
            "No running AutoCAD instance found. Start AutoCAD or check the value of g_acadver.");
  std::string played;
  c.ctx.players.script = [&](RunContext&, const std::string&) {
    played = project.read("tmpinput.scr");
  };
  c.lines.clear();
  EXPECT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(played, "_line\r\n\r\n");
  EXPECT_EQ(c.lines, (Lines{"crea,a", "   Continued in an AutoCAD script", "crea,never"}));
}

TEST_F(CompilePass, GlobalVariablesCarryToTheNextInputFileOnly) {
  project.write("a.ipf", crlf({"let,g_road=M1,local=1,"}));
  project.write("b.ipf", crlf({"crea,|g_road|,|local|"}));
  ASSERT_TRUE(c.compile("a.ipf"));
  ASSERT_TRUE(c.compile("b.ipf"));
  EXPECT_EQ(c.lines, (Lines{"crea,M1,local"}));
}

TEST_F(CompilePass, FlushRunsWhatWasCompiledAndSentinelOnlyOutputsAreNotRun) {
  project.write("a.ipf", crlf({"crea,m1", "kill,nothing.txt", "kill,nothing.txt", "crea,m2"}));
  ASSERT_TRUE(c.compile("a.ipf"));
  ASSERT_EQ(c.engine.runs.size(), 2u);  // the second kill had nothing to run
  EXPECT_EQ(c.engine.runs[0],
            "crea,it is just a flag model\r\ncrea,m1\r\ndele,it is just a flag model\r\n");
  EXPECT_EQ(c.engine.runs[1],
            "crea,it is just a flag model\r\ncrea,m2\r\ndele,it is just a flag model\r\n");
}

}  // namespace
