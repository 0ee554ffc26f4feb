#include "shell/progress_meter.h"

#include "base/fs.h"
#include "base/messages.h"
#include "base/texts/cli_texts.h"

namespace korvane {
namespace {

// Lines between two looks at the clock: reading it is cheap, not free.
constexpr long kLinesPerLook = 256;
// Askers kept and shown in the summary; the rest are counted together.
constexpr std::size_t kAskersKept = 64;
constexpr std::size_t kAskersShown = 6;

}  // namespace

ProgressMeter::ProgressMeter(const Messages& messages, std::chrono::milliseconds interval,
                             Show show, Clock clock)
    : messages_(messages), interval_(interval), show_(std::move(show)), clock_(std::move(clock)) {
  last_ = clock_();
}

void ProgressMeter::startEntry() {
  lines_ = 0;
  runs_ = 0;
  asked_.clear();
  frames_.clear();
  last_ = clock_();
}

std::string ProgressMeter::cause(const EngineRunCause& run) const {
  if (run.asker.empty()) return messages_.text(texts::cli::kAskedAtEnd);  // the entry's end
  std::string text = messages_.format(texts::cli::kAskedBy, run.asker,
                                      fs::fromNative(fs::native(run.file).filename()));
  return replaceAll(text, "%3", std::to_string(run.line));
}

void ProgressMeter::engineRun(const EngineRunCause& run) {
  runs_ = run.number;
  const std::string text = cause(run);
  std::size_t i = 0;
  while (i < asked_.size() && asked_[i].text != text) ++i;
  if (i == asked_.size() && asked_.size() < kAskersKept) asked_.push_back({text, 0});
  if (i < asked_.size()) ++asked_[i].times;
  lastAsked_ = i;
  maybeShow();
}

std::string ProgressMeter::counts() const {
  return messages_.format(texts::cli::kProgressCounts,
                          countText(messages_, lines_, texts::cli::kLinesOne, texts::cli::kLines),
                          countText(messages_, runs_, texts::cli::kMxRunsOne, texts::cli::kMxRuns));
}

std::string ProgressMeter::text() const {
  std::string where;
  if (!frames_.empty())
    where = messages_.format(texts::cli::kProgressAt,
                             fs::fromNative(fs::native(frames_.back().file).filename()),
                             std::to_string(frames_.back().line)) +
            "  ";
  const bool asked = runs_ > 0 && lastAsked_ < asked_.size();
  return where + counts() + (asked ? " (" + asked_[lastAsked_].text + ")" : "");
}

std::string ProgressMeter::summary() const {
  std::string list;
  int shownRuns = 0;
  for (std::size_t i = 0; i < asked_.size() && i < kAskersShown; ++i) {
    const Asked& a = asked_[i];
    list +=
        (list.empty() ? "" : "; ") +
        (a.times == 1 ? a.text
                      : messages_.format(texts::cli::kAskedTimes, a.text, std::to_string(a.times)));
    shownRuns += a.times;
  }
  if (shownRuns < runs_)
    list += "; " + messages_.format(texts::cli::kAskedMore, std::to_string(runs_ - shownRuns));
  return counts() + (list.empty() ? "" : ": " + list);
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
