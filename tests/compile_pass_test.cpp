// Directives of the compile pass, on real files in a throw-away project. The
// plainer cases are golden files in tests/cases.
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

TEST_F(CompilePass, ExistAsksTheEngineAndKeepsThePreviousTruthOtherwise) {
  c.engine.models = {"GROUND"};
  c.engine.strings = {"GROUND/MAST"};
  project.write(
      "a.ipf",
      crlf({"if exist(GROUND) then a=1 else a=0", "if exist(GROUND,MAST) then b=1 else b=0",
            "if exist(GROUND,NONE) then c=1 else c=0", "if exist(a,b,c) then d=1 else d=0",
            "if nothing then e=1 else e=0"}));
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.var("a"), "1");
  EXPECT_EQ(c.var("b"), "1");
  EXPECT_EQ(c.var("c"), "0");
  EXPECT_EQ(c.var("d"), "0");        // three arguments: the previous condition's truth
  EXPECT_EQ(c.var("e"), "<unset>");  // neither an operator nor exist(): nothing applies
}

TEST_F(CompilePass, SectionsCompileFromTheirHeadToTheNextOne) {
  project.write("a.ipf", crlf({"crea,top", "[Main]", "crea,main", "insert,[_part].", "[_part]",
                               "crea,part", "[end]", "crea,end"}));
  ASSERT_TRUE(c.compile("a.ipf [main]"));  // labels compare ignoring case
  EXPECT_EQ(c.lines, (Lines{"crea,main", "crea,part"}));
  c.lines.clear();
  ASSERT_TRUE(c.compile("a.ipf"));  // a whole file stops at its first section too
  EXPECT_EQ(c.lines, (Lines{"crea,top"}));
  EXPECT_FALSE(c.compile("a.ipf [missing]"));
  EXPECT_EQ(c.ctx.stop.message, c.ctx.messages.format("Messages", "s13", "a.ipf", "[missing]"));
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
  EXPECT_EQ(m.ctx.stop.message, m.ctx.messages.format("Messages", "s9", "pub.ipm"));
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
  EXPECT_NE(c.ctx.stop.message.find("AutoCAD"), std::string::npos);
  std::string played;
  c.ctx.players.script = [&](RunContext&, const std::string& f) {
    played = project.read("tmpinput.scr");
  };
  c.ctx.stop.clear();
  c.lines.clear();
  EXPECT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(played, "_line\r\n\r\n");
  EXPECT_EQ(c.lines, (Lines{"crea,a", "   " + c.ctx.text("Outputs", "s9"), "crea,never"}));
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
  c.engine.leaveSentinel = true;
  EXPECT_FALSE(c.compile("a.ipf"));
  EXPECT_EQ(c.ctx.stop.message.substr(0, 20), c.ctx.text("Messages", "s5").substr(0, 20));
}

}  // namespace
