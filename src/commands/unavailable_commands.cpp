// Commands whose implementations are not part of this build end the compile
// run with a clear message instead of succeeding silently.
#include "commands/commands.h"
#include "compiler/compile_failure.h"

namespace korvane::commands {

void superelevation(DirectiveCall&, const std::string&) {
  throw RuntimeFailure("notavail", "superelevation");
}
void earthworkToExcel(CallContext&) { throw RuntimeFailure("notavail", "earthwork->excel"); }

}  // namespace korvane::commands
