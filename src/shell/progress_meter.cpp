#include "shell/progress_meter.h"

#include "base/fs.h"
#include "base/texts/cli_texts.h"

namespace korvane {
namespace {

// Lines between two looks at the clock: reading it is cheap, not free.
constexpr long kLinesPerLook = 256;

}  // namespace

ProgressMeter::ProgressMeter(const Messages& messages, std::chrono::milliseconds interval,
                             Show show, Clock clock)
    : messages_(messages), interval_(interval), show_(std::move(show)), clock_(std::move(clock)) {
  last_ = clock_();
}

void ProgressMeter::startEntry() {
  lines_ = 0;
  runs_ = 0;
  frames_.clear();
  last_ = clock_();
}

void ProgressMeter::engineRun(int run) {
  runs_ = run;
  maybeShow();
}

std::string ProgressMeter::text() const {
  std::string where;
  if (!frames_.empty())
    where = messages_.format(texts::cli::kProgressAt,
                             fs::fromNative(fs::native(frames_.back().file).filename()),
                             std::to_string(frames_.back().line)) +
            "  ";
  return where + messages_.format(texts::cli::kProgressCounts, std::to_string(lines_),
                                  std::to_string(runs_));
}

void ProgressMeter::fileEntered(const std::string& fullName) { frames_.push_back({fullName, 0}); }

void ProgressMeter::fileLeft() {
  if (!frames_.empty()) frames_.pop_back();
}

void ProgressMeter::lineRead(long line, const std::string&) {
  if (!frames_.empty()) frames_.back().line = line;
  if (++lines_ % kLinesPerLook == 0) maybeShow();
}

void ProgressMeter::maybeShow() {
  const auto now = clock_();
  if (now - last_ < interval_) return;
  last_ = now;
  show_(text());
}

}  // namespace korvane
