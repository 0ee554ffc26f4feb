// The compile pass: reads one input file, or one section of it, line by line,
// expands the directives and writes every other line to the compiled output.
// Inclusion, repetition and the default blocks of extended commands are
// further calls on the same output and variable table.
#pragma once

#include <string>

#include "compiler/run_context.h"

namespace korvane {

enum class CompileMode { Whole, Leading, Repeating, Trailing };

// How deep inclusions may nest before the run is stopped.
constexpr int kMaxCompileDepth = 100;

// Begins the compile of a run entry: the temporaries and the MX runs count
// from 1 again, input files are read afresh, and the places of the last entry
// are forgotten.
void beginEntry(RunContext& ctx);

// `fileSpec`: a file name, optionally followed by a blank and a section label
// beginning with "[". `baseFolder`: searched first for the file. `currentFile`:
// the caller's file, used when the name part is empty. `assignText`: applied
// where the file has a `default` line.
void CompileFile(RunContext& ctx, const std::string& fileSpec, const std::string& baseFolder,
                 const std::string& currentFile, const std::string& assignText, CompileMode mode);

}  // namespace korvane
