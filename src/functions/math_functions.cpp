// Arithmetic functions. They have no error trap of their own: an argument that
// is not a number, a logarithm of zero or an overflow ends the compile run.
#include <cmath>

#include "base/texts/runtime_texts.h"
#include "compiler/extension/call_context.h"
#include "compiler/extension/compile_failure.h"
#include "functions/argument_conversion.h"
#include "functions/function_rows.h"

namespace korvane {
namespace {

std::string fnAbs(CallContext& ctx) { return numberResult(std::fabs(numberArg(ctx, 1)), "abs"); }
std::string fnInt(CallContext& ctx) { return numberResult(std::floor(numberArg(ctx, 1)), "int"); }

std::string fnSqr(CallContext& ctx) {
  double x = numberArg(ctx, 1);
  return x < 0 ? "0" : numberResult(std::sqrt(x), "sqr");
}

std::string fnSgn(CallContext& ctx) {
  double x = numberArg(ctx, 1);
  return x < 0 ? "-1" : x > 0 ? "1" : "0";
}

std::string fnExp(CallContext& ctx) { return numberResult(std::exp(numberArg(ctx, 1)), "exp"); }
std::string fnSin(CallContext& ctx) { return numberResult(std::sin(numberArg(ctx, 1)), "sin"); }
std::string fnCos(CallContext& ctx) { return numberResult(std::cos(numberArg(ctx, 1)), "cos"); }
std::string fnTan(CallContext& ctx) { return numberResult(std::tan(numberArg(ctx, 1)), "tan"); }
std::string fnAtn(CallContext& ctx) { return numberResult(std::atan(numberArg(ctx, 1)), "atn"); }

std::string fnLn(CallContext& ctx) {
  double x = numberArg(ctx, 1);
  if (x <= 0) throw RuntimeFailure(texts::runtime::kBadArgument, "ln(" + ctx.arg(1) + ")");
  return numberResult(std::log(x), "ln");
}

std::string fnLg(CallContext& ctx) {
  double x = numberArg(ctx, 1);
  if (x <= 0) throw RuntimeFailure(texts::runtime::kBadArgument, "lg(" + ctx.arg(1) + ")");
  return numberResult(std::log(x) / std::log(10.0), "lg");
}

constexpr FunctionRow kMathFunctionsRows[] = {
    {"abs", fnAbs}, {"int", fnInt}, {"sqr", fnSqr}, {"sgn", fnSgn}, {"exp", fnExp}, {"sin", fnSin},
    {"cos", fnCos}, {"tan", fnTan}, {"atn", fnAtn}, {"ln", fnLn},   {"lg", fnLg},
};

}  // namespace

extern const FunctionRows kMathFunctions = kMathFunctionsRows;

}  // namespace korvane
