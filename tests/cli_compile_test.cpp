// The korvane program end to end: `korvane compile` as users and scripts call it.
#include <gtest/gtest.h>

#include "support/cli.h"
#include "support/process.h"

namespace korvane::test {
namespace {

using CliCompile = CliProject;

TEST_F(CliCompile, WritesTheMxLinesOfAllEntriesWithCrLf) {
  project.write("a.ipf", "#g_n=2\ncrea,a|g_n|\n[sec]\ncrea,section\n");
  project.write("b.ipf", "crea,b|g_n|\n");
  EXPECT_EQ(run("compile a.ipf b.ipf"), 0);
  EXPECT_EQ(out(), "crea,a2\r\ncrea,b2\r\n");
  EXPECT_EQ(run("compile a.ipf [sec] -o lines.inp --vars vars.txt"), 0);
  EXPECT_EQ(project.read("lines.inp"), "crea,section\r\n");
  EXPECT_EQ(project.read("tmpinput.txt"),
            "crea,it is just a flag model\r\ncrea,section\r\ndele,it is just a flag model\r\n");
  EXPECT_EQ(run("compile 'a.ipf [sec]' --vars vars.txt"), 0);  // one word works too
  EXPECT_EQ(project.read("vars.txt"), "");
}

TEST_F(CliCompile, AStoppedRunExitsOneAndKeepsWhatWasCompiled) {
  project.write("a.ipf", "crea,first\nlet,x=1/0,\ncrea,never\n");
  EXPECT_EQ(run("compile a.ipf -o lines.inp --lang en"), 1);
  EXPECT_EQ(project.read("lines.inp"), "crea,first\r\n");
  EXPECT_NE(err().find("Division by zero"), std::string::npos) << err();
  EXPECT_NE(err().find(project.path("a.ipf") + ", line 2"), std::string::npos) << err();
  EXPECT_NE(err().find("Line: let,x=1/0,"), std::string::npos) << err();
}

TEST_F(CliCompile, AnswersQuestionsFromTheCommandLineThenFromStandardInput) {
  project.write("a.ipf", "let,w=input(Width),\nlet,h=input(Height),\ncrea,|w|x|h|\n");
  EXPECT_EQ(run("compile a.ipf --answer 7.5"), 0);
  EXPECT_EQ(out(), "crea,7.5x\r\n");  // no more input: cancelled
  EXPECT_NE(err().find("Height"), std::string::npos);
}

TEST_F(CliCompile, MissingSettingsOrWrongUsageExitTwo) {
  project.write("a.ipf", "crea,a\n");
  home = project.path("nohome");
  EXPECT_EQ(run("compile a.ipf"), 2);
  EXPECT_EQ(project.read("err.txt"),
            "File not found: " + project.path("nohome/Korvane.ini") + kTextLineEnd);
  home = sourceDir() + "/data";
  EXPECT_EQ(run("compile a.ipf --engine bogus"), 2);
}

}  // namespace
}  // namespace korvane::test
