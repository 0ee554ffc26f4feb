#include "cli/warnings.h"

#include "base/texts/check_texts.h"
#include "cli/session.h"
#include "shell/input_sections.h"

namespace korvane::cli {

Warnings::Warnings(RunContext& ctx)
    : ctx_(ctx),
      diagnostics_(ctx.language, ctx.vars, ctx.settingsPath, [](const std::string& file) {
        return readSections(file).value_or(std::vector<std::string>{});
      }) {
  ctx_.observers.add(&diagnostics_);
}

Warnings::~Warnings() { ctx_.observers.remove(&diagnostics_); }

void Warnings::print() {
  const auto& all = diagnostics_.findings();
  for (; printed_ < all.size(); ++printed_)
    printError(describeFinding(ctx_.messages, all[printed_]));
  if (diagnostics_.count() > all.size() && !moreSaid_) {
    printError(ctx_.messages.format(texts::check::kMore,
                                    std::to_string(diagnostics_.count() - all.size())));
    moreSaid_ = true;
  }
}

}  // namespace korvane::cli
