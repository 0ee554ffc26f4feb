// Compiling one run entry from beginning to end: the compiled output is begun
// with the sentinel line, the input file or section is compiled, and the
// output is closed and run through MX.
#pragma once

#include <string>

#include "compiler/run_context.h"

namespace korvane {

// A run entry: the full path of an input file, optionally followed by
// " [" + section + "]".
struct RunEntry {
  std::string path;
  std::string section;  // empty for the whole file
};
RunEntry parseRunEntry(const std::string& entry);
// What the compile pass takes for an entry: the file name and its section label.
std::string entryFileSpec(const RunEntry& entry);

// Starts an input file: keeps only the "g_" variables, resets the temporary
// counter and label seed, removes a sentinel model left by a failed run, and
// opens the MX input with the sentinel creation line.
void beginInputFile(RunContext& ctx);

// Compiles and runs one entry. Returns false when the stop state or a run-time
// failure ended it (ctx.stop holds the message; ctx.failure the place of a
// run-time failure). What was compiled before a failure stays written.
bool ApplyOneFile(RunContext& ctx, const std::string& entry);

// The full text of a run-time failure: what, where, and the line.
std::string failureMessage(const RunContext& ctx, const FailureReport& f);

}  // namespace korvane
