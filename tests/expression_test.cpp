// The evaluator's operator split, quoting, temporaries and the field scanner;
// the plain functions through the vectors.
#include "compiler/expression.h"

#include <gtest/gtest.h>

#include "compiler/compile_failure.h"
#include "compiler/expression_tree.h"
#include "compiler/field_scanner.h"
#include "support/project.h"
#include "support/vectors.h"

using namespace korvane;

namespace {

struct ExpressionTest : ::testing::Test {
  test::Evaluator c;
  std::string eval(const std::string& e) { return c.eval(e); }
};

// Operators, quoting and the plain functions: tests/vectors/expressions.txt.
TEST_F(ExpressionTest, Vectors) {
  for (const auto& v : test::readVectors("expressions.txt", 2))
    EXPECT_EQ(eval(v.fields[0]), v.fields[1]) << v.where << ": " << v.fields[0];
}

TEST_F(ExpressionTest, VariablesAreSubstitutedAfterTheSplit) {
  c.ctx.vars.set("a", "-3");
  c.ctx.vars.set("name", "MAST");
  EXPECT_EQ(eval("a*2"), "-6");
  EXPECT_EQ(eval("name&\"-x\""), "MAST-x");
  EXPECT_EQ(eval("unknown"), "unknown");
  // Any text can be a name, a number too: once "2" is one, it stands for its value.
  EXPECT_EQ(eval("2*3"), "6");
  c.ctx.vars.set("2", "5");
  EXPECT_EQ(eval("2*3"), "15");
  EXPECT_EQ(eval("2"), "5");
}

// A text's split is kept for the next time the text comes (a repeated line);
// its values are not: each evaluation reads the variables as they are then.
TEST_F(ExpressionTest, AKeptSplitReadsTheVariablesAgain) {
  for (int i = 1; i <= 3; ++i) {
    c.ctx.vars.set("count", std::to_string(i));
    EXPECT_EQ(eval("count*2+1"), std::to_string(i * 2 + 1));
  }
  c.ctx.vars.set("count", "0.1");
  EXPECT_EQ(eval("count*2+1"), "1.2");
  c.ctx.vars.set("count", "x");
  EXPECT_EQ(eval("count*2+1"), "1");
  // Past the bound the kept splits start over; every text evaluates as before.
  for (std::size_t i = 0; i < ExpressionCache::kMaxTexts + 10; ++i)
    ASSERT_EQ(eval(std::to_string(i) + "+1"), std::to_string(i + 1));
  c.ctx.vars.set("count", "7");
  EXPECT_EQ(eval("count*2+1"), "15");
}

TEST_F(ExpressionTest, FunctionValuesBecomeTemporariesThatThePurgeRemoves) {
  EXPECT_EQ(eval("len(abc)+len(de)"), "5");
  EXPECT_EQ(c.var("zTMP00001"), "2");  // the last ")" is taken first
  EXPECT_EQ(c.var("zTMP00002"), "3");
  c.ctx.vars.purgeTemporaries();
  EXPECT_EQ(c.ctx.vars.size(), 0u);
}

TEST_F(ExpressionTest, ArithmeticFailuresAreRuntimeFailures) {
  auto key = [&](const std::string& e) {
    try {
      eval(e);
    } catch (const RuntimeFailure& f) {
      return f.key();
    }
    return std::string("none");
  };
  EXPECT_EQ(key("1/0"), "div0");
  EXPECT_EQ(key("10^400"), "overflow");
  EXPECT_EQ(key("(-8)^0.5"), "badarg");
  EXPECT_EQ(key("1)"), "paren");
  EXPECT_EQ(key("sqr(abc)"), "mismatch");
  EXPECT_EQ(key("ln(0)"), "badarg");
  EXPECT_EQ(key("exp(1000)"), "overflow");
  EXPECT_EQ(key("len(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16)"), "args");
  EXPECT_EQ(key("len(1,2,3,4,5,6,7,8,9,10,11,12,13,14,15)"), "none");
}

TEST_F(ExpressionTest, AssignmentListsEvaluateEachValue) {
  applyAssignments(c.ctx, "a=1+1, b = a*3 ,s=\"x,y\",f=len(\"a,b\"),");
  EXPECT_EQ(c.var("a"), "2");
  EXPECT_EQ(c.var("b"), "6");
  EXPECT_EQ(c.var("s"), "x,y");
  EXPECT_EQ(c.var("f"), "3");
  applyAssignments(c.ctx, "a=5");  // no trailing comma
  EXPECT_EQ(c.var("a"), "5");
}

TEST_F(ExpressionTest, LineSubstitutionRepeatsUntilNoBarIsLeft) {
  c.ctx.vars.set("inner", "|n|");
  c.ctx.vars.set("n", "7");
  std::string line = "crea,m|inner|,|n+1|";
  substituteLine(c.ctx, line);
  EXPECT_EQ(line, "crea,m7,8");
  std::string lone = "a|b";
  EXPECT_THROW(substituteLine(c.ctx, lone), RuntimeFailure);
  c.ctx.vars.set("loop", "|loop|");
  std::string endless = "|loop|";
  EXPECT_THROW(substituteLine(c.ctx, endless), RuntimeFailure);
}

TEST(FieldScanner, CommasInsideQuotesAndParenthesesDoNotSplit) {
  std::string_view t = "a,\"b,c\",f(1,(2,3)),,\"open,x";
  std::size_t pos = 0;
  EXPECT_EQ(nextField(t, pos), "a");
  EXPECT_EQ(nextField(t, pos), "\"b,c\"");
  EXPECT_EQ(nextField(t, pos), "f(1,(2,3))");
  EXPECT_EQ(nextField(t, pos), "");
  EXPECT_EQ(nextField(t, pos), "\"open,x");  // an unclosed quote runs to the end
  EXPECT_GT(pos, t.size());
  EXPECT_EQ(matchingParen("f(a(b))", 6), 1u);
  EXPECT_EQ(matchingParen("a)", 1), std::string_view::npos);
  EXPECT_TRUE(inRange(3, 3, 5, "[]"));
  EXPECT_FALSE(inRange(3, 3, 5, "(]"));
  EXPECT_TRUE(inRange(3, 3, 5, "[)"));
  EXPECT_FALSE(inRange(5, 3, 5, "()"));
}

TEST_F(ExpressionTest, FieldSplitStopsAfterIfAndRefusesASixteenthField) {
  splitFields(c.ctx, " crea , |1+1| ,x");
  EXPECT_EQ(c.ctx.fields[0], "crea");
  EXPECT_EQ(c.ctx.fields[1], "2");
  EXPECT_EQ(c.ctx.fields[2], "x");
  splitFields(c.ctx, "if,a=1 then b=2,c=3");
  EXPECT_EQ(c.ctx.fields[1], "");
  splitFields(c.ctx, "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,");
  EXPECT_EQ(c.ctx.fields[14], "15");
  EXPECT_THROW(splitFields(c.ctx, "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16"), RuntimeFailure);
}

}  // namespace

namespace {

// Lines that nest far beyond any real input end with a run-time failure, not
// with the stack run out.
TEST(ExpressionDepth, LongChainsAndDeepParenthesesAreRefused) {
  test::Evaluator c;
  std::string chain = "1";
  for (int i = 0; i < 24000; ++i) chain += "+1";
  std::string parens = std::string(16000, '(') + "1" + std::string(16000, ')');
  for (const std::string& e : {chain, parens}) {
    try {
      c.eval(e);
      ADD_FAILURE() << "no failure for " << e.size() << " characters";
    } catch (const RuntimeFailure& f) {
      EXPECT_EQ(f.key(), "exprdepth");
    }
    EXPECT_EQ(c.ctx.expressionDepth, 0);  // unwound to the top
  }
  std::string fine = "1";
  for (int i = 0; i < kMaxExpressionDepth / 2; ++i) fine += "+1";
  EXPECT_EQ(c.eval(fine), std::to_string(kMaxExpressionDepth / 2 + 1));
}

// A few lines that multiply a text's length would take all memory: every text
// has a longest length, and a value that would pass it is a run-time failure.
TEST(TextLength, ConcatenationAndReplaceStopAtTheLongestText) {
  const std::size_t letters = 2000;
  auto tooLong = [](test::Evaluator& c, const std::string& e) {
    try {
      std::size_t got = c.eval(e).size();
      ADD_FAILURE() << e.substr(0, 20) << "... gave a text of " << got << " characters";
    } catch (const RuntimeFailure& f) {
      EXPECT_EQ(f.key(), "textlen") << e;
    }
  };
  test::Evaluator c;
  c.ctx.vars.set("a", std::string(letters, 'a'));
  std::string times200 = "a";
  for (int i = 1; i < 200; ++i) times200 += "&a";
  c.ctx.vars.set("b", c.eval(times200));  // 400 000 characters is fine
  EXPECT_EQ(c.var("b").size(), 200 * letters);
  std::string bTimes200 = "b";
  for (int i = 1; i < 200; ++i) bTimes200 += "&b";
  tooLong(c, bTimes200);
  // Every "a" of a replaced by a itself: letters * letters characters.
  tooLong(c, "replace(a,\"a\",a)");
  EXPECT_EQ(c.eval("len(replace(a,\"a\",\"bb\"))"), std::to_string(2 * letters));
  // The longest text itself is held; one character more is not.
  c.ctx.vars.set("m", std::string(kMaxTextLength, 'm'));
  EXPECT_EQ(c.eval("len(m)"), std::to_string(kMaxTextLength));
  tooLong(c, "m&\"m\"");
}

}  // namespace
