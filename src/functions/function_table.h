// The functions of the input language, by name, in the order names are
// compared. Each takes its arguments from the run's argument array.
#pragma once

#include <string>
#include <string_view>

#include "compiler/run_context.h"

namespace korvane {

using FunctionHandler = std::string (*)(RunContext& ctx);

// The handler for a lower-case name, or null for a name that is no function.
FunctionHandler findFunction(std::string_view name);

// Argument k (1-based) of the call being dispatched.
inline const std::string& arg(const RunContext& ctx, int k) { return ctx.args[k - 1]; }

// Handlers, grouped by file.
std::string fnSheets(RunContext& ctx);
std::string fnInput(RunContext& ctx);
std::string fnFormat(RunContext& ctx);
std::string fnLen(RunContext& ctx);
std::string fnReplace(RunContext& ctx);
std::string fnFind(RunContext& ctx);
std::string fnLeft(RunContext& ctx);
std::string fnRight(RunContext& ctx);
std::string fnMid(RunContext& ctx);
std::string fnAbs(RunContext& ctx);
std::string fnInt(RunContext& ctx);
std::string fnSqr(RunContext& ctx);
std::string fnSgn(RunContext& ctx);
std::string fnExp(RunContext& ctx);
std::string fnSin(RunContext& ctx);
std::string fnCos(RunContext& ctx);
std::string fnTan(RunContext& ctx);
std::string fnAtn(RunContext& ctx);
std::string fnLn(RunContext& ctx);
std::string fnLg(RunContext& ctx);
std::string fnDate(RunContext& ctx);
std::string fnTime(RunContext& ctx);

}  // namespace korvane
