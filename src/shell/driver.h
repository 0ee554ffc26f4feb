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
// counter, removes a sentinel model left by a failed run, and opens the MX
// input with the sentinel creation line.
void beginInputFile(RunContext& ctx);

// Compiles and runs one entry. Returns false when a failure ended it: the
// stop state then holds the language file's message for it. What was
// compiled before a failure stays written.
bool ApplyOneFile(RunContext& ctx, const std::string& entry);

}  // namespace korvane
