// The warnings of a session's compile, printed on standard error: the likely
// mistakes every compile tells (unless -w; --strict stops at the first), and
// with --warnings, as in the check command, the diagnostics observer's
// findings too, in the order they were met.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "compiler/run_context.h"
#include "shell/diagnostics.h"

namespace korvane::cli {

// --warnings, --strict and -w.
struct WarningOptions {
  bool findings = false;  // --warnings: the check command's findings too
  bool strict = false;
  bool silent = false;
};

class Warnings final : public WarningSink {
 public:
  Warnings(RunContext& ctx, const WarningOptions& options);
  ~Warnings() override;
  Warnings(const Warnings&) = delete;
  Warnings& operator=(const Warnings&) = delete;

  void warning(const RunWarning& w) override;
  // Prints the warnings not printed yet, one a line, on standard error.
  void print();
  std::size_t count() const;

 private:
  RunContext& ctx_;
  std::optional<Diagnostics> diagnostics_;
  std::vector<std::string> lines_;  // without diagnostics
  std::size_t printed_ = 0;
  bool moreSaid_ = false;
};

}  // namespace korvane::cli
