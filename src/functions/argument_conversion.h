// Reading the arguments of a call as numbers. A text that is not a number is
// a run-time failure naming that text.
#pragma once

#include <cstdint>
#include <string>

#include "compiler/extension/call_context.h"

namespace korvane {

double numberArg(const CallContext& ctx, int k);
std::int16_t integerArg(const CallContext& ctx, int k);
std::int32_t longArg(const CallContext& ctx, int k);
// The same for a text taken from the argument array earlier.
std::int16_t integerOf(const std::string& text);
// The general text of a numeric result; an infinite or undefined result is an
// overflow naming the function.
std::string numberResult(double v, const char* function);

}  // namespace korvane
