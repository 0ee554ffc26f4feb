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

std::size_t Warnings::count() const { return diagnostics_ ? diagnostics_->count() : lines_.size(); }

void Warnings::print() {
  if (!diagnostics_) {
    for (; printed_ < lines_.size(); ++printed_) printError(lines_[printed_]);
    return;
  }
  const auto& all = diagnostics_->findings();
  for (; printed_ < all.size(); ++printed_)
    printError(describeFinding(ctx_.messages, all[printed_]));
  if (diagnostics_->count() > all.size() && !moreSaid_) {
    printError(ctx_.messages.format(texts::check::kMore,
                                    std::to_string(diagnostics_->count() - all.size())));
    moreSaid_ = true;
  }
}

}  // namespace korvane::cli
