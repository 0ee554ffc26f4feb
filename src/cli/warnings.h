// --warnings of compile and run, and the check command: the diagnostics
// observer attached to a session's compile, and its findings printed.
#pragma once

#include <memory>

#include "compiler/run_context.h"
#include "shell/diagnostics.h"

namespace korvane::cli {

class Warnings {
 public:
  explicit Warnings(RunContext& ctx);
  ~Warnings();
  Warnings(const Warnings&) = delete;
  Warnings& operator=(const Warnings&) = delete;

  // Prints the findings not printed yet, one a line, on standard error.
  void print();
  std::size_t count() const { return diagnostics_.count(); }

 private:
  RunContext& ctx_;
  Diagnostics diagnostics_;
  std::size_t printed_ = 0;
  bool moreSaid_ = false;
};

}  // namespace korvane::cli
