#include "functions/argument_conversion.h"

#include <cmath>

#include "base/conversions.h"
#include "compiler/compile_failure.h"
#include "functions/functions.h"

namespace korvane {
namespace {

template <typename F>
auto convert(const std::string& text, F f) {
  try {
    return f(text);
  } catch (const conv::ConversionError& e) {
    throw failureFromConversion(e, text);
  }
}

}  // namespace

double numberArg(const CallContext& ctx, int k) {
  return convert(arg(ctx, k), [](const std::string& t) { return conv::CDbl(t); });
}

std::int16_t integerArg(const CallContext& ctx, int k) { return integerOf(arg(ctx, k)); }

std::int16_t integerOf(const std::string& text) {
  return convert(text, [](const std::string& t) { return conv::CInt(t); });
}

std::int32_t longArg(const CallContext& ctx, int k) {
  return convert(arg(ctx, k), [](const std::string& t) { return conv::CLng(t); });
}

std::string numberResult(double v, const char* function) {
  if (!std::isfinite(v)) throw RuntimeFailure("overflow", function);
  return conv::CStr(v);
}

}  // namespace korvane
