// Commands whose implementations are not part of this build end the compile
// run with a clear message instead of succeeding silently.
#include "commands/commands.h"
#include "compiler/runtime_failure.h"

namespace korvane::commands {

void labelmove(RunContext&, const std::string&, const std::string&, LineReader&) {
  throw RuntimeFailure("notavail", "labelmove");
}
void trimsection(RunContext&, const std::string&) {
  throw RuntimeFailure("notavail", "trimsection");
}
void superelevation(RunContext&, const std::string&, LineReader&, const std::string&) {
  throw RuntimeFailure("notavail", "superelevation");
}
void earthworkToExcel(RunContext&) { throw RuntimeFailure("notavail", "earthwork->excel"); }
void ditchList(RunContext&, const std::string&) { throw RuntimeFailure("notavail", "ditch_list"); }
void ditchPips(RunContext&, const std::string&) { throw RuntimeFailure("notavail", "ditch_pips"); }
void xlmacro(RunContext&, const std::string&, const std::string*, int) {
  throw RuntimeFailure("notavail", "xlmacro");
}
void xlput(RunContext&, const std::string&, const std::string&, std::int32_t, std::int32_t,
           const std::string&) {
  throw RuntimeFailure("notavail", "xlput");
}

void drawxsection(RunContext&, const std::string&, const std::string&, LineReader&) {}

bool processRunning(const std::string&) {
  // Excel, AutoCAD and the MX engine run only on Windows.
  return false;
}

}  // namespace korvane::commands
