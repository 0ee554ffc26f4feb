// The embedded engine's one way to fail: a record it cannot execute, input it
// cannot read, a store it cannot read or write (SqliteError, which keeps
// SQLite's result code). It is thrown where the failure is found, with the
// reason; the run loop adds the line and the record. The engine's services
// (embedded_engine.h) are the one place that turns it into an answer: a run's
// MxRunResult, a query's status word, MxError from the model library. Nothing
// else is caught: running out of memory or a broken invariant is not an
// answer about the models and goes on to the caller.
#pragma once

#include <stdexcept>
#include <string>

#include "hosts/mx.h"

namespace korvane::engine {

class EngineError : public std::runtime_error {
 public:
  explicit EngineError(const std::string& reason) : std::runtime_error(reason) {}
  // A failure in the input of a run, at a line (0: before the first line,
  // where an import's model name is checked) and its record as quoted.
  EngineError(const std::string& reason, int line, std::string record)
      : std::runtime_error(reason), inInput_(true), line_(line), record_(std::move(record)) {}

  // The input line (1-based); 0 when the failure is not at a line.
  int line() const { return line_; }
  // The run's message: `input, line N: reason: "record"`; `input: reason`
  // before the first line; the reason alone when not in the input.
  std::string message(const std::string& input) const {
    if (!inInput_) return what();
    if (line_ == 0) return input + ": " + what();
    return input + ", line " + std::to_string(line_) + ": " + what() + ": \"" + record_ + "\"";
  }

 private:
  bool inInput_ = false;
  int line_ = 0;
  std::string record_;
};

// A read of the store for a service of MX that has no status word to answer
// with (modelExists, stringExists, the model library): the engine's error
// leaves as hosts::MxError, with its reason.
template <class Read>
auto readForMx(Read&& read) {
  try {
    return read();
  } catch (const EngineError& e) {
    throw hosts::MxError(e.what());
  }
}

}  // namespace korvane::engine
