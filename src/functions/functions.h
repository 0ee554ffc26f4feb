// The functions of the input language. Each takes its arguments from the call
// context's argument array; registerFunctions adds them all to the language's
// function table.
#pragma once

#include <string>

#include "compiler/call_context.h"

namespace korvane {

class FunctionTable;

void registerFunctions(FunctionTable& table);

// Argument k (1-based) of the call being dispatched.
inline const std::string& arg(const CallContext& ctx, int k) { return ctx.arg(k); }

// Handlers, grouped by file.
std::string fnSheets(CallContext& ctx);
std::string fnInput(CallContext& ctx);
std::string fnFormat(CallContext& ctx);
// model_query_functions.cpp, minmax_function.cpp
std::string fnGetdata(CallContext& ctx);
std::string fnGetchain(CallContext& ctx);
std::string fnGetpoint(CallContext& ctx);
std::string fnGetdist(CallContext& ctx);  // also getdistance
std::string fnGetlength(CallContext& ctx);
std::string fnGetminmax(CallContext& ctx);
std::string fnEach(CallContext& ctx);
// label_functions.cpp
std::string fnGetnextlabel(CallContext& ctx);
std::string fnGetfreelabel(CallContext& ctx);
// project_getters.cpp
std::string fnGetparam(CallContext& ctx);
std::string fnGetlispvar(CallContext& ctx);
std::string fnGetacadvar(CallContext& ctx);
// excel_getters.cpp
std::string fnXlget(CallContext& ctx);
std::string fnGetname(CallContext& ctx);
std::string fnLen(CallContext& ctx);
std::string fnReplace(CallContext& ctx);
std::string fnFind(CallContext& ctx);
std::string fnLeft(CallContext& ctx);
std::string fnRight(CallContext& ctx);
std::string fnMid(CallContext& ctx);
std::string fnAbs(CallContext& ctx);
std::string fnInt(CallContext& ctx);
std::string fnSqr(CallContext& ctx);
std::string fnSgn(CallContext& ctx);
std::string fnExp(CallContext& ctx);
std::string fnSin(CallContext& ctx);
std::string fnCos(CallContext& ctx);
std::string fnTan(CallContext& ctx);
std::string fnAtn(CallContext& ctx);
std::string fnLn(CallContext& ctx);
std::string fnLg(CallContext& ctx);
std::string fnDate(CallContext& ctx);
std::string fnTime(CallContext& ctx);

}  // namespace korvane
