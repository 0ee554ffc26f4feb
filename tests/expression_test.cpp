// The evaluator's kept splits, temporaries, substitution, limits and the field
// scanner; what expressions give and how they fail are the vectors
// tests/vectors/expressions.txt and expression_failures.txt, variables and
// assignment lists the golden case variables_and_assignments.
#include "compiler/expression.h"

#include <gtest/gtest.h>

#include <optional>

#include "base/conversions.h"
#include "compiler/compile_internals.h"
#include "compiler/expression_tree.h"
#include "compiler/failure_message.h"
#include "compiler/field_scanner.h"
#include "support/project.h"
#include "support/vectors.h"

using namespace korvane;

namespace {

// The "Runtime" text of the failure that evaluating `e` ends the run with, an
// error of the layers below taken as the compile pass takes it; "none" when
// it gives a value.
std::string failure(test::Evaluator& c, const std::string& e) {
  try {
    c.eval(e);
  } catch (const CompileFailure& f) {
    return runtimeText(c.ctx.messages, f);
  } catch (...) {
    return runtimeText(c.ctx.messages, foreignFailure());
  }
  return "none";
}

struct ExpressionTest : ::testing::Test {
  test::Evaluator c;
  std::string eval(const std::string& e) { return c.eval(e); }
  std::string failure(const std::string& e) { return ::failure(c, e); }
};

TEST_F(ExpressionTest, Vectors) {
  for (const auto& v : test::readVectors("expressions.txt", 2))
    EXPECT_EQ(eval(v.fields[0]), v.fields[1]) << v.where << ": " << v.fields[0];
  for (const auto& v : test::readVectors("expression_failures.txt", 2)) {
    test::Evaluator fresh;  // temporaries named from 1
    EXPECT_EQ(::failure(fresh, v.fields[0]), v.fields[1]) << v.where << ": " << v.fields[0];
  }
}

// The split reads a literal's number without an exception: Val's value where
// Val gives one, nothing where Val fails.
TEST(TryVal, GivesValsValueOrNothing) {
  for (const auto& v : test::readVectors("val.txt", 2)) {
    std::optional<double> val;
    try {
      val = conv::Val(v.fields[0]);
    } catch (const conv::ConversionError&) {
      // the lines that give Val's errors: TryVal gives nothing
    }
    EXPECT_EQ(conv::TryVal(v.fields[0]), val) << v.where;
  }
}

// A text's split is kept for the next time the text comes (a repeated line);
// its values are not: each evaluation reads the variables as they are then.
TEST_F(ExpressionTest, AKeptSplitReadsTheVariablesAgain) {
  const std::pair<const char*, const char*> passes[] = {{"1", "3"}, {"0.1", "1.2"}, {"x", "1"}};
  for (const auto& [count, value] : passes) {
    c.ctx.vars.set("count", count);
    EXPECT_EQ(eval("count*2+1"), value) << count;
  }
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

// Substitution searches again from the start until no bar is left; a value
// that keeps producing bars is refused.
TEST_F(ExpressionTest, LineSubstitutionRepeatsUntilNoBarIsLeft) {
  c.ctx.vars.set("inner", "|n|");
  c.ctx.vars.set("n", "7");
  std::string line = "crea,m|inner|,|n+1|";
  substituteLine(c.ctx, line);
  EXPECT_EQ(line, "crea,m7,8");
  c.ctx.vars.set("loop", "|loop|");
  std::string endless = "|loop|";
  EXPECT_THROW(substituteLine(c.ctx, endless), RuntimeFailure);
}

TEST(FieldScanner, CommasInsideQuotesAndParenthesesDoNotSplit) {
  for (const auto& v : test::readVectors("field_scanner.txt", 2)) {
    std::string got;
    for (std::size_t pos = 0; pos <= v.fields[0].size();) {
      if (pos) got += " | ";
      got += nextField(v.fields[0], pos);
    }
    EXPECT_EQ(got, v.fields[1]) << v.where;
  }
  EXPECT_EQ(matchingParen("f(a(b))", 6), 1u);
  EXPECT_EQ(matchingParen("a)", 1), std::string_view::npos);
  EXPECT_TRUE(inRange(3, 3, 5, "[]"));
  EXPECT_FALSE(inRange(3, 3, 5, "(]"));
  EXPECT_TRUE(inRange(3, 3, 5, "[)"));
  EXPECT_FALSE(inRange(5, 3, 5, "()"));
}

TEST_F(ExpressionTest, FieldSplitEvaluatesBarredFieldsAndStopsAfterIf) {
  const auto& fields = internals(c.ctx).fields;
  splitFields(c.ctx, " crea , |1+1| ,x");
  EXPECT_EQ(fields[0], "crea");
  EXPECT_EQ(fields[1], "2");
  EXPECT_EQ(fields[2], "x");
  splitFields(c.ctx, "if,a=1 then b=2,c=3");
  EXPECT_EQ(fields[1], "");
}

// Lines that nest far beyond any real input end with a run-time failure, not
// with the stack run out.
TEST_F(ExpressionTest, LongChainsAndDeepParenthesesAreRefused) {
  std::string chain = "1";
  for (int i = 0; i < 24000; ++i) chain += "+1";
  std::string parens = std::string(16000, '(') + "1" + std::string(16000, ')');
  for (const std::string& e : {chain, parens}) {
    EXPECT_EQ(failure(e), "The expression is nested too deeply (more than 500 levels)");
    EXPECT_EQ(internals(c.ctx).expressionDepth, 0);  // unwound to the top
  }
  std::string fine = "1";
  for (int i = 0; i < kMaxExpressionDepth / 2; ++i) fine += "+1";
  EXPECT_EQ(eval(fine), std::to_string(kMaxExpressionDepth / 2 + 1));
}

// A few lines that multiply a text's length would take all memory: every text
// has a longest length, and a value that would pass it is a run-time failure.
TEST_F(ExpressionTest, ConcatenationAndReplaceStopAtTheLongestText) {
  const std::string tooLong = "The text is too long (more than 1048560 characters)";
  const std::size_t letters = 2000;
  c.ctx.vars.set("a", std::string(letters, 'a'));
  std::string times200 = "a";
  for (int i = 1; i < 200; ++i) times200 += "&a";
  c.ctx.vars.set("b", eval(times200));  // 400 000 characters is fine
  EXPECT_EQ(c.var("b").size(), 200 * letters);
  std::string bTimes200 = "b";
  for (int i = 1; i < 200; ++i) bTimes200 += "&b";
  EXPECT_EQ(failure(bTimes200), tooLong);
  // Every "a" of a replaced by a itself: letters * letters characters.
  EXPECT_EQ(failure("replace(a,\"a\",a)"), tooLong);
  EXPECT_EQ(eval("len(replace(a,\"a\",\"bb\"))"), std::to_string(2 * letters));
  // The longest text itself is held; one character more is not.
  c.ctx.vars.set("m", std::string(kMaxTextLength, 'm'));
  EXPECT_EQ(eval("len(m)"), std::to_string(kMaxTextLength));
  EXPECT_EQ(failure("m&\"m\""), tooLong);
}

}  // namespace
