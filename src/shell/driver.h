// Compiling one run entry from beginning to end: the compiled output is begun
// with the sentinel line, the input file or section is compiled, and the
// output is closed and run through MX.
#pragma once

#include <optional>
#include <string>

#include "compiler/extension/compile_failure.h"
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

// How a failure ended a run entry: the failure, with the place where the
// compile stood, and its text as it is shown.
struct Stopped {
  CompileFailure failure;
  std::string message;
  // Stopped from outside (Ctrl-C, the Stop button), not by the input.
  bool interrupted() const { return failure.key() == texts::runtime::kInterrupted; }
  // Lines that help find what is missing (the insert's place, the folders
  // searched, the closest name); shown after the message where there is room.
  std::string details;
  std::string shown() const { return details.empty() ? message : message + "\n" + details; }
};

// Compiles and runs one entry; what stopped it, or nothing when it ran to its
// end. What was compiled before a failure stays written.
std::optional<Stopped> ApplyOneFile(RunContext& ctx, const std::string& entry);

}  // namespace korvane
