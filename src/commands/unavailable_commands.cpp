// Commands whose implementations are not part of this build end the compile
// run with a clear message instead of succeeding silently.
#include "commands/commands.h"
#include "compiler/compile_failure.h"

namespace korvane::commands {

void labelmove(DirectiveCall&, const std::string&, const std::string&) {
  throw RuntimeFailure("notavail", "labelmove");
}
void trimsection(CallContext&, const std::string&) {
  throw RuntimeFailure("notavail", "trimsection");
}
void superelevation(DirectiveCall&, const std::string&) {
  throw RuntimeFailure("notavail", "superelevation");
}
void earthworkToExcel(CallContext&) { throw RuntimeFailure("notavail", "earthwork->excel"); }

}  // namespace korvane::commands
