#include "functions/argument_conversion.h"

#include <cmath>

#include "base/conversions.h"
#include "base/texts/runtime_texts.h"
#include "compiler/extension/compile_failure.h"

namespace korvane {
namespace {

template <typename F>
auto convert(const std::string& text, F f) {
  try {
    return f(text);
  } catch (const conv::ConversionError&) {
    throw foreignFailure(text);
  }
}

}  // namespace

double numberArg(const CallContext& ctx, int k) {
  ctx.numberExpected(k);
  return convert(ctx.arg(k), [](const std::string& t) { return conv::CDbl(t); });
}

std::int16_t integerArg(const CallContext& ctx, int k) {
  ctx.numberExpected(k);
  return integerOf(ctx.arg(k));
}

std::int16_t integerOf(const std::string& text) {
  return convert(text, [](const std::string& t) { return conv::CInt(t); });
}

std::int32_t longArg(const CallContext& ctx, int k) {
  ctx.numberExpected(k);
  return convert(ctx.arg(k), [](const std::string& t) { return conv::CLng(t); });
}

std::string numberResult(double v, const char* function) {
  if (!std::isfinite(v)) throw RuntimeFailure(texts::runtime::kOverflow, function);
  return conv::CStr(v);
}

}  // namespace korvane
