// Generated input: arbitrary text must never crash the evaluator, the field
// split or the compile pass. Only the failures the language defines may leave.
#include <gtest/gtest.h>

#include <random>

#include "base/conversions.h"
#include "compiler/compile_failure.h"
#include "compiler/expression.h"
#include "support/project.h"

using namespace korvane;

namespace {

// Text built from the characters that mean something to the language, with
// some random bytes among them.
std::string randomText(std::mt19937& rng, std::size_t maxLen) {
  static const std::string kAlphabet = "|(),\"=<>&+-*/^#; .[]0123456789eEdabcxyz_\xE1\xF5\t";
  std::uniform_int_distribution<std::size_t> len(0, maxLen);
  std::uniform_int_distribution<int> pick(0, 99);
  std::string s;
  for (std::size_t n = len(rng); n > 0; --n) {
    int p = pick(rng);
    if (p < 90)
      s += kAlphabet[rng() % kAlphabet.size()];
    else if (p < 97)
      s += "len(abc)";  // a real call now and then
    else
      s += static_cast<char>(rng() % 256);
  }
  return s;
}

template <typename F>
void survives(F f) {
  try {
    f();
  } catch (const RuntimeFailure&) {
  } catch (const conv::ConversionError&) {
  }
}

TEST(Fuzz, EvaluateAndFieldSplitNeverCrash) {
  test::TempProject project;
  test::Compiler c{project};
  std::mt19937 rng(20261121);
  for (int i = 0; i < 20000; ++i) {
    std::string text = randomText(rng, 40);
    survives([&] { Evaluate(c.ctx, std::string_view(text)); });
    survives([&] { splitFields(c.ctx, text); });
    survives([&] { applyAssignments(c.ctx, text); });
    c.ctx.vars.clear();
  }
}

TEST(Fuzz, CompilePassNeverCrashesAndAlwaysEndsTheRun) {
  test::TempProject project;
  test::Compiler c{project};
  std::mt19937 rng(7);
  static const char* kLineStarts[] = {"insert,",   "let,",    "#",      "if ",   "repeat",
                                      "endrepeat", "default", "[",      "crea,", "   ",
                                      "fini",      "reset",   "print,p"};
  for (int i = 0; i < 300; ++i) {
    std::string body;
    for (int l = rng() % 12; l > 0; --l)
      body +=
          std::string(kLineStarts[rng() % std::size(kLineStarts)]) + randomText(rng, 30) + "\r\n";
    project.write("f.ipm", body);
    project.write("f.ipf", body);
    c.compile("f.ipf");  // must return, whatever it says
  }
  SUCCEED();
}

}  // namespace
