// The function dispatcher and the functions that reach beyond the expression;
// the plain ones are in tests/vectors/expressions.txt.
#include <gtest/gtest.h>

#include <regex>

#include "compiler/expression.h"
#include "compiler/function_dispatch.h"
#include "support/project.h"

using namespace korvane;

namespace {

struct Functions : ::testing::Test {
  test::TempProject project;
  test::Compiler c{project};
  std::string eval(const std::string& e) { return Evaluate(c.ctx, std::string_view(e)); }
};

TEST_F(Functions, NamesAreScannedBackwardsOverTheNameAlphabet) {
  // The dot ends the name: len(ab) becomes a temporary after "x.", and the
  // whole text, being no variable, evaluates to itself.
  const std::string dotted = eval("x.len(ab)");
  EXPECT_EQ(dotted.substr(0, 2), "x.");
  EXPECT_EQ(c.var(dotted.substr(2)), "2");
  c.ctx.vars.set("\xE9rt\xE9k", "5");     // "érték": accented letters belong to names
  EXPECT_EQ(eval("\xC9RT\xC9K(1)"), "");  // an unknown function, upper-case accents lowered
  EXPECT_TRUE(isNameCharacter('\xF5'));
  EXPECT_TRUE(isNameCharacter('\xDB'));   // "Ű" lowers to "ű"
  EXPECT_FALSE(isNameCharacter('\xE4'));  // "ä" is not in the alphabet
  EXPECT_FALSE(isNameCharacter('-'));
}

TEST_F(Functions, TrappedTextFailuresGiveEmptyTextAndALogLine) {
  EXPECT_EQ(eval("left(abc,x)"), "");
  EXPECT_EQ(eval("mid(abc,0,1)"), "");
  EXPECT_EQ(eval("right(abc,-1)"), "");
  EXPECT_EQ(c.log, (std::vector<std::string>{
                       "left: the arguments are wrong (it takes 2), the result is empty",
                       "mid: the arguments are wrong (it takes 3), the result is empty",
                       "right: the arguments are wrong (it takes 2), the result is empty"}));
}

TEST_F(Functions, SheetsReadsByte121OfTheParameterFile) {
  EXPECT_EQ(eval("sheets()"), "0");
  std::string dpf(200, '\0');
  dpf[120] = static_cast<char>(200);
  project.write("long1.dpf", dpf);
  EXPECT_EQ(eval("sheets(long1)"), "200");
  EXPECT_EQ(eval("sheets(missing)"), "0");
  project.write("folder.dpf/inside.txt", "x");  // a folder by the file's name cannot be read
  EXPECT_EQ(eval("sheets(folder)"), "0");
}

struct ScriptedPrompt : InputPrompt {
  std::vector<std::string> answers;
  std::string lastPrompt;
  bool ask(const std::string&, const std::string& prompt, std::string& answer) override {
    lastPrompt = prompt;
    if (answers.empty()) return false;
    answer = answers.front();
    answers.erase(answers.begin());
    return true;
  }
};

TEST_F(Functions, InputFlushesFirstAndEmptyMeansCancelled) {
  ScriptedPrompt prompt;
  prompt.answers = {"42"};
  c.ctx.prompt = &prompt;
  project.write("a.ipf", "crea,before\r\nlet,x=input(Width?),\r\nlet,y=input(Again?),\r\n");
  ASSERT_TRUE(c.compile("a.ipf"));
  EXPECT_EQ(c.var("x"), "42");
  EXPECT_EQ(c.var("y"), "");
  EXPECT_EQ(prompt.lastPrompt, "Enter the value asked for:\r\n\r\nAgain?");
  ASSERT_EQ(c.engine.runs.size(), 1u);  // "crea,before" ran before the first question
}

// yyyy.mm.dd. and hh:nn:ss; Hungarian Windows puts a blank after each dot of
// the date but the last, and writes the hour without a leading zero.
TEST_F(Functions, DateAndTimeHaveTheirFixedForms) {
  EXPECT_TRUE(std::regex_match(eval("date()"), std::regex(R"(\d{4}\. ?\d\d\. ?\d\d\.)")));
  EXPECT_TRUE(std::regex_match(eval("time()"), std::regex(R"(\d?\d:\d\d:\d\d)")));
}

}  // namespace
