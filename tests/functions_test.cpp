// The function dispatcher's name scan and the clock's forms; what the plain
// functions give is tests/vectors/expressions.txt, the others golden cases
// (trapped_text_failures_log, sheets_reads_byte_121, input_flushes_first).
#include <gtest/gtest.h>

#include <regex>

#include "compiler/function_dispatch.h"
#include "support/project.h"

using namespace korvane;

namespace {

struct Functions : ::testing::Test {
  test::Evaluator c;
  std::string eval(const std::string& e) { return c.eval(e); }
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

// yyyy.mm.dd. and hh:nn:ss; Hungarian Windows puts a blank after each dot of
// the date but the last, and writes the hour without a leading zero.
TEST_F(Functions, DateAndTimeHaveTheirFixedForms) {
  EXPECT_TRUE(std::regex_match(eval("date()"), std::regex(R"(\d{4}\. ?\d\d\. ?\d\d\.)")));
  EXPECT_TRUE(std::regex_match(eval("time()"), std::regex(R"(\d?\d:\d\d:\d\d)")));
}

}  // namespace
