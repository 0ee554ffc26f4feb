// Arithmetic functions. They have no error trap of their own: an argument that
// is not a number, a logarithm of zero or an overflow ends the compile run.
#include <cmath>

#include "compiler/runtime_failure.h"
#include "functions/argument_conversion.h"
#include "functions/function_table.h"

namespace korvane {

std::string fnAbs(RunContext& ctx) { return numberResult(std::fabs(numberArg(ctx, 1)), "abs"); }
std::string fnInt(RunContext& ctx) { return numberResult(std::floor(numberArg(ctx, 1)), "int"); }

std::string fnSqr(RunContext& ctx) {
  double x = numberArg(ctx, 1);
  return x < 0 ? "0" : numberResult(std::sqrt(x), "sqr");
}

std::string fnSgn(RunContext& ctx) {
  double x = numberArg(ctx, 1);
  return x < 0 ? "-1" : x > 0 ? "1" : "0";
}

std::string fnExp(RunContext& ctx) { return numberResult(std::exp(numberArg(ctx, 1)), "exp"); }
std::string fnSin(RunContext& ctx) { return numberResult(std::sin(numberArg(ctx, 1)), "sin"); }
std::string fnCos(RunContext& ctx) { return numberResult(std::cos(numberArg(ctx, 1)), "cos"); }
std::string fnTan(RunContext& ctx) { return numberResult(std::tan(numberArg(ctx, 1)), "tan"); }
std::string fnAtn(RunContext& ctx) { return numberResult(std::atan(numberArg(ctx, 1)), "atn"); }

std::string fnLn(RunContext& ctx) {
  double x = numberArg(ctx, 1);
  if (x <= 0) throw RuntimeFailure("badarg", "ln(" + arg(ctx, 1) + ")");
  return numberResult(std::log(x), "ln");
}

std::string fnLg(RunContext& ctx) {
  double x = numberArg(ctx, 1);
  if (x <= 0) throw RuntimeFailure("badarg", "lg(" + arg(ctx, 1) + ")");
  return numberResult(std::log(x) / std::log(10.0), "lg");
}

}  // namespace korvane
