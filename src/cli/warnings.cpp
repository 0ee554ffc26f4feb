#include "cli/warnings.h"

#include "base/texts/check_texts.h"
#include "cli/session.h"
#include "shell/input_sections.h"

namespace korvane::cli {

Warnings::Warnings(RunContext& ctx, const WarningOptions& options) : ctx_(ctx) {
  using Mode = RunWarnings::Mode;
  ctx_.warnings.mode = options.silent ? Mode::Silent : options.strict ? Mode::Strict : Mode::Shown;
  ctx_.warnings.sink = this;
  if (!options.findings) return;
  diagnostics_.emplace(ctx.language, ctx.vars, ctx.settingsPath, [](const std::string& file) {
    return readSections(file).value_or(std::vector<std::string>{});
  });
  ctx_.observers.add(&*diagnostics_);
}

Warnings::~Warnings() {
  ctx_.warnings.sink = nullptr;
  if (diagnostics_) ctx_.observers.remove(&*diagnostics_);
}

void Warnings::warning(const RunWarning& w) {
  if (diagnostics_)
    diagnostics_->runWarning(w);
  else
    lines_.push_back(describeWarning(ctx_.messages, w));
}

std::size_t Warnings::count() const {
  return (diagnostics_ ? diagnostics_->count() : lines_.size()) + ctx_.warnings.dropped;
}

void Warnings::print() {
  if (!diagnostics_) {
    for (; printed_ < lines_.size(); ++printed_) printError(lines_[printed_]);
  } else {
    const auto& all = diagnostics_->findings();
    for (; printed_ < all.size(); ++printed_)
      printError(describeFinding(ctx_.messages, all[printed_]));
  }
  const std::size_t shown = diagnostics_ ? diagnostics_->findings().size() : lines_.size();
  if (count() > shown && !moreSaid_) {
    printError(ctx_.messages.format(texts::check::kMore, std::to_string(count() - shown)));
    moreSaid_ = true;
  }
}

}  // namespace korvane::cli
