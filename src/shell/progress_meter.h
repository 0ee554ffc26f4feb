// Progress of a compile for a person watching: the file and line being
// compiled, the lines compiled and the MX runs of the entry with what asked
// for them, handed out at most once an interval so that a long run pays
// nothing for it.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "base/messages.h"
#include "compiler/compile_observer.h"
#include "compiler/run_context.h"

namespace korvane {

class ProgressMeter final : public CompileObserver {
 public:
  using Clock = std::function<std::chrono::steady_clock::time_point()>;
  using Show = std::function<void(const std::string& text)>;

  // `show` gets the progress text at most once an `interval`.
  ProgressMeter(
      const Messages& messages, std::chrono::milliseconds interval, Show show,
      Clock clock = [] { return std::chrono::steady_clock::now(); });

  // A new entry: the counts start again.
  void startEntry();
  void engineRun(const EngineRunCause& run);
  // The text as it stands now: where, the counts and what asked for the last MX run.
  std::string text() const;
  // The entry's counts and what asked for its MX runs, the same asker at the
  // same line counted together.
  std::string summary() const;
  long linesCompiled() const { return lines_; }

  void fileEntered(const std::string& fullName) override;
  void fileLeft() override;
  void lineRead(long line, const std::string& rawLine) override;

 private:
  void maybeShow();

  const Messages& messages_;
  std::chrono::milliseconds interval_;
  Show show_;
  Clock clock_;
  std::chrono::steady_clock::time_point last_{};
  struct Frame {
    std::string file;
    long line = 0;
  };
  std::vector<Frame> frames_;
  std::string counts() const;
  std::string cause(const EngineRunCause& run) const;

  long lines_ = 0;
  int runs_ = 0;
  struct Asked {
    std::string text;
    int times = 0;
  };
  std::vector<Asked> asked_;  // in the order first asked, at most kAskersKept
  std::size_t lastAsked_ = 0;
};

}  // namespace korvane
