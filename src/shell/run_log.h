// The log of a run that the variables viewer's second page shows: the
// compiler's trapped failures (RunContext::log) and what the engine said about
// each input it ran. RunLog collects them; LoggingEngine passes every call to
// the real engine and reports its runs.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "base/messages.h"
#include "hosts/mx.h"

namespace korvane {

// Lines written by the run's thread and read by the window's; safe for both.
class RunLog {
 public:
  void clear();
  void add(std::string line);
  std::vector<std::string> lines() const;
  // All lines joined by line ends, for a text box.
  std::string text(std::string_view lineEnd = "\n") const;

 private:
  mutable std::mutex mutex_;
  std::vector<std::string> lines_;
};

class LoggingEngine final : public hosts::MxEngine, hosts::MxConfiguration {
 public:
  LoggingEngine(hosts::MxEngine& engine, RunLog& log, Messages messages)
      : engine_(engine), log_(log), messages_(std::move(messages)) {}

  hosts::MxConfiguration& configuration() override { return *this; }
  hosts::MxProject& project() override { return engine_.project(); }
  hosts::MxDataAccess& dataAccess() override { return engine_.dataAccess(); }
  hosts::MxModelLibrary& library() override { return engine_.library(); }

  std::string setting(std::string_view name) override {
    return engine_.configuration().setting(name);
  }
  // Runs the input and logs the engine's message and listing when it failed.
  hosts::MxRunResult run(std::string_view verb, const std::string& fullName) override;
  bool modelExists(std::string_view model) override {
    return engine_.configuration().modelExists(model);
  }
  bool stringExists(std::string_view model, std::string_view label) override {
    return engine_.configuration().stringExists(model, label);
  }
  std::vector<std::string> modelNames() override { return engine_.configuration().modelNames(); }
  bool holdsModels() override { return engine_.configuration().holdsModels(); }

 private:
  hosts::MxEngine& engine_;
  RunLog& log_;
  Messages messages_;
};

}  // namespace korvane
