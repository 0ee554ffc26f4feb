// The function table rows of the input language.
#include <utility>

#include "compiler/call_context.h"
#include "compiler/compile_failure.h"
#include "compiler/language.h"
#include "functions/functions.h"

namespace korvane {
namespace {

// Functions that query MX models, label arithmetic and external programs
// dispatch here until their implementations are part of the build.
template <const char* Name>
std::string notAvailable(CallContext&) {
  throw RuntimeFailure("notavail", Name);
}

#define KORVANE_UNAVAILABLE(id, text) \
  constexpr char k##id[] = text;      \
  constexpr FunctionHandler fn##id = &notAvailable<k##id>;

KORVANE_UNAVAILABLE(Getdata, "getdata")
KORVANE_UNAVAILABLE(Getchain, "getchain")
KORVANE_UNAVAILABLE(Getpoint, "getpoint")
KORVANE_UNAVAILABLE(Getdist, "getdist")
KORVANE_UNAVAILABLE(Getlength, "getlength")
KORVANE_UNAVAILABLE(Getminmax, "getminmax")
KORVANE_UNAVAILABLE(Getnextlabel, "getnextlabel")
KORVANE_UNAVAILABLE(Getfreelabel, "getfreelabel")
KORVANE_UNAVAILABLE(Each, "each")
KORVANE_UNAVAILABLE(Pls, "pls")
KORVANE_UNAVAILABLE(Getname, "getname")
KORVANE_UNAVAILABLE(Xlget, "xlget")
KORVANE_UNAVAILABLE(Getlispvar, "getlispvar")
KORVANE_UNAVAILABLE(Getacadvar, "getacadvar")
KORVANE_UNAVAILABLE(Getparam, "getparam")
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
