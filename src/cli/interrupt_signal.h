// Ctrl-C: the one flag the program's handler sets. The run context and the
// embedded engine carry it; a compile stops before its next line and the
// engine before its next record, rolling back the run in progress. A second
// Ctrl-C ends the program at once.
#pragma once

#include <atomic>

namespace korvane::cli {

// Installs the handler (once) and returns the flag it sets.
const std::atomic<bool>* watchInterrupt();

}  // namespace korvane::cli
