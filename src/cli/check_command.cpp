// korvane check: compiles entries only to report what looks wrong in them.
// It asks the same engine as compile and run, so that model queries answer
// as they will in the run, and the embedded engine undoes every change when
// it ends; --engine none runs nothing.
#include <CLI/CLI.hpp>

#include "base/texts/check_texts.h"
#include "base/texts/cli_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "cli/warnings.h"
#include "shell/driver.h"

namespace korvane::cli {
namespace {

struct CheckOptions {
  std::vector<std::string> words;
  SessionOptions session;
};

int runCheck(CheckOptions o) {
  int status = 0;
  const std::vector<std::string> entries = entriesFromWords(o.words);
  if (!entries.empty()) o.session.firstEntry = parseRunEntry(entries.front()).path;
  o.session.looking = true;
  auto session = Session::open(o.session, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;
  Warnings warnings(ctx, {.findings = true});
  std::optional<Stopped> stopped;
  for (const auto& entry : entries) {
    stopped = ApplyOneFile(ctx, entry);
    warnings.print();
    if (stopped) {
      printError(stopped->shown());
      if (stopped->interrupted()) return kInterruptedStatus;
      break;
    }
  }
  if (!stopped && warnings.count() == 0) {
    printError(ctx.messages.text(texts::check::kNone));
    return 0;
  }
  if (warnings.count() > 0)
    printError(ctx.messages.format(texts::check::kCount, std::to_string(warnings.count())));
  return 1;
}

}  // namespace

void addCheckCommand(CLI::App& app) {
  auto o = std::make_shared<CheckOptions>();
  auto* cmd = app.add_subcommand("check", cliText(texts::cli::kHelpCheck));
  cmd->add_option("ENTRY", o->words, cliText(texts::cli::kHelpEntry))->required();
  addSessionOptions(cmd, o->session);
  cmd->callback([o] { setExitCode(runCheck(*o)); });
}

}  // namespace korvane::cli
