// Commands whose implementations are not part of this build end the compile
// run with a clear message instead of succeeding silently.
#include "commands/commands.h"
#include "compiler/compile_failure.h"

namespace korvane::commands {

void superelevation(DirectiveCall&, const std::string&) {
  throw RuntimeFailure("notavail", "superelevation");
}
void earthworkToExcel(CallContext&) { throw RuntimeFailure("notavail", "earthwork->excel"); }
void ditchList(CallContext&, const std::string&) { throw RuntimeFailure("notavail", "ditch_list"); }
void ditchPips(CallContext&, const std::string&) { throw RuntimeFailure("notavail", "ditch_pips"); }
void xlmacro(CallContext&, const std::string&, const std::string*, int) {
  throw RuntimeFailure("notavail", "xlmacro");
}
void xlput(CallContext&, const std::string&, const std::string&, std::int32_t, std::int32_t,
           const std::string&) {
  throw RuntimeFailure("notavail", "xlput");
}

bool processRunning(const std::string&) {
  // Excel, AutoCAD and the MX engine run only on Windows.
  return false;
}

}  // namespace korvane::commands
