// The function table rows of the input language.
#include <utility>

#include "compiler/call_context.h"
#include "compiler/compile_failure.h"
#include "compiler/language.h"
#include "functions/functions.h"

namespace korvane {
namespace {

// Functions whose implementations are not part of this build (the
// superelevation query) end the run with a clear message.
template <const char* Name>
std::string notAvailable(CallContext&) {
  throw RuntimeFailure("notavail", Name);
}

#define KORVANE_UNAVAILABLE(id, text) \
  constexpr char k##id[] = text;      \
  constexpr FunctionHandler fn##id = &notAvailable<k##id>;

KORVANE_UNAVAILABLE(Pls, "pls")
#undef KORVANE_UNAVAILABLE

const std::pair<std::string_view, FunctionHandler> kTable[] = {
    {"sheets", fnSheets},
    {"input", fnInput},
    {"getdata", fnGetdata},
    {"getchain", fnGetchain},
    {"getpoint", fnGetpoint},
    {"getdist", fnGetdist},
    {"getdistance", fnGetdist},
    {"getlength", fnGetlength},
    {"getminmax", fnGetminmax},
    {"getnextlabel", fnGetnextlabel},
    {"getfreelabel", fnGetfreelabel},
    {"each", fnEach},
    {"format", fnFormat},
    {"pls", fnPls},
    {"getname", fnGetname},
    {"xlget", fnXlget},
    {"getlispvar", fnGetlispvar},
    {"getacadvar", fnGetacadvar},
    {"getparam", fnGetparam},
    {"len", fnLen},
    {"replace", fnReplace},
    {"find", fnFind},
    {"left", fnLeft},
    {"right", fnRight},
    {"mid", fnMid},
    {"char", fnMid},
    {"abs", fnAbs},
    {"int", fnInt},
    {"sqr", fnSqr},
    {"sgn", fnSgn},
    {"exp", fnExp},
    {"sin", fnSin},
    {"cos", fnCos},
    {"tan", fnTan},
    {"atn", fnAtn},
    {"ln", fnLn},
    {"lg", fnLg},
    {"date", fnDate},
    {"time", fnTime},
};

}  // namespace

void registerFunctions(FunctionTable& table) {
  for (const auto& [name, handler] : kTable) table.add(name, handler);
}

}  // namespace korvane
