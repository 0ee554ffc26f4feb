#include "functions/argument_conversion.h"

#include <cmath>

#include "compiler/runtime_failure.h"
#include "functions/function_table.h"
#include "shell/conversions.h"

namespace korvane {
namespace {

template <typename F>
auto convert(const std::string& text, F f) {
  try {
    return f(text);
  } catch (const conv::ConversionError& e) {
    if (e.code() == conv::ConvErrc::Overflow) throw RuntimeFailure("overflow", text);
    throw RuntimeFailure("mismatch", text);
  }
}

}  // namespace

double numberArg(const RunContext& ctx, int k) {
  return convert(arg(ctx, k), [](const std::string& t) { return conv::CDbl(t); });
}

std::int16_t integerArg(const RunContext& ctx, int k) {
  return convert(arg(ctx, k), [](const std::string& t) { return conv::CInt(t); });
}

std::int32_t longArg(const RunContext& ctx, int k) {
  return convert(arg(ctx, k), [](const std::string& t) { return conv::CLng(t); });
}

std::string numberResult(double v, const char* function) {
  if (!std::isfinite(v)) throw RuntimeFailure("overflow", function);
  return conv::CStr(v);
}

}  // namespace korvane
