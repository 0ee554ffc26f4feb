// korvane compile: compiles run entries into MX lines, for checking what a
// file produces. Model queries ask the same engine as a run; the embedded
// engine undoes every change when it ends.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "base/fs.h"
#include "base/texts/cli_texts.h"
#include "base/texts/runtime_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "cli/warnings.h"
#include "shell/driver.h"
#include "shell/project_guard.h"

namespace korvane::cli {
namespace {

struct CompileOptions {
  std::vector<std::string> words;
  SessionOptions session;
  std::string output;
  std::string varsFile;
  bool dumpVars = false;
  WarningOptions warnings;
};

int runCompile(CompileOptions o) {
  int status = 0;
  const std::vector<std::string> entries = entriesFromWords(o.words);
  if (!entries.empty()) o.session.firstEntry = parseRunEntry(entries.front()).path;
  // The same engine as `korvane run`, so that model queries answer alike.
  o.session.looking = true;
  auto session = Session::open(o.session, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;
  std::vector<std::string> outputs = projectOutputs(ctx.projectFolder, {}, "", "");
  if (!o.output.empty()) outputs.push_back(fs::absolute(fromTerminal(o.output)));
  if (!o.varsFile.empty()) outputs.push_back(fs::absolute(fromTerminal(o.varsFile)));
  if (refusesOwnInput(ctx, entries, outputs)) return 2;

  std::ofstream file;
  std::ostream* out = &std::cout;
  if (!o.output.empty()) {
    file.open(fs::native(fromTerminal(o.output)), std::ios::binary | std::ios::trunc);
    if (!file) {
      printError(ctx.messages.format(texts::runtime::kCannotWrite, fromTerminal(o.output)));
      return 1;
    }
    out = &file;
  }
  // The MX lines stay Windows-1250 in a file or a pipe; a terminal gets its own encoding.
  const bool terminal = o.output.empty() && ::isatty(fileno(stdout));
  ctx.output.setMxTap([out, terminal, record = std::string()](std::string_view line) mutable {
    if (terminal)
      record = toTerminal(std::string(line));
    else
      record.assign(line);  // no allocation once the longest line has been seen
    record += "\r\n";
    // Straight into the stream's buffer: a line is too short to pay for the
    // sentry that ostream::write builds each time.
    const auto n = static_cast<std::streamsize>(record.size());
    if (out->rdbuf()->sputn(record.data(), n) != n) out->setstate(std::ios::badbit);
  });

  Warnings warnings(ctx, o.warnings);
  std::optional<Stopped> stopped;
  for (const auto& entry : entries) {
    stopped = ApplyOneFile(ctx, entry);
    warnings.print();
    if (stopped) break;
  }
  out->flush();
  int result = 0;
  if (!*out) {
    printError(ctx.messages.format(texts::runtime::kCannotWrite,
                                   o.output.empty() ? "-" : fromTerminal(o.output)));
    result = 1;
  }

  std::string text;
  for (const auto& item : ctx.vars.viewerItems()) text += item + "\r\n";
  if (o.dumpVars) std::cout << toTerminal(text) << std::flush;
  if (!o.varsFile.empty()) {
    if (!fs::writeFileAtomic(fromTerminal(o.varsFile), text)) {
      printError(ctx.messages.format(texts::runtime::kCannotWrite, fromTerminal(o.varsFile)));
      result = 1;
    }
  }
  if (stopped) {
    printError(stopped->shown());
    return stopped->interrupted() ? kInterruptedStatus : 1;
  }
  return result;
}

}  // namespace

void addCompileCommand(CLI::App& app) {
  auto o = std::make_shared<CompileOptions>();
  auto* cmd = app.add_subcommand("compile", cliText(texts::cli::kHelpCompile));
  cmd->add_option("ENTRY", o->words, cliText(texts::cli::kHelpEntry))->required();
  addSessionOptions(cmd, o->session);
  cmd->add_option("-o,--output", o->output, cliText(texts::cli::kHelpOutput));
  cmd->add_option("--vars", o->varsFile, cliText(texts::cli::kHelpVars));
  cmd->add_flag("--dumpvars", o->dumpVars, cliText(texts::cli::kHelpDumpVars));
  addWarningsOption(cmd, o->warnings);
  cmd->callback([o] { setExitCode(runCompile(*o)); });
}

}  // namespace korvane::cli
