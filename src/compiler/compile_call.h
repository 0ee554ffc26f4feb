// State of one call of the compile pass, shared by the files that implement
// its directives.
#pragma once

#include <string>

#include "compiler/compile_pass.h"
#include "compiler/extension/directive_call.h"
#include "compiler/line_reader.h"

namespace korvane {

struct CompileCall {
  RunContext& ctx;
  // The state of one call lives in the run's storage for its depth, whose
  // buffers outlive the call: a repeated part read pass after pass allocates
  // nothing for its names and lines.
  LineReader& reader;
  std::string& folder;      // where this call's file was found; base folder of its inserts
  std::string& name;        // the name as this call received it, without a section label;
                            // for a section of the current file, that file
  std::string& assignText;  // passed down by the caller
  CompileMode mode = CompileMode::Whole;
  std::string& lastInsertAssign;  // assignment text of this call's previous insert
  bool lastCondition = false;     // truth of this call's previous condition
  std::string& rawLine;           // the line as read, for failure reports
  std::string& work;              // the line being compiled

  // Keyword text: the next line, joined with the following ones while the
  // trimmed line ends with ",", and a final ",".
  std::string readKeywordText();
  // Reads the next line of this call's file; false at its end.
  bool readLine(std::string& line) { return reader.readLine(line); }
};

// The compile state of the call that met a directive.
inline CompileCall& compileCallOf(DirectiveCall& d) { return d.call_; }

// True when `repeat` now evaluates to `word`.
bool repeatIs(RunContext& ctx, const char* word);

}  // namespace korvane
