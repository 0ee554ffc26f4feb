// korvane compile: compiles run entries into MX input without running it
// (unless an engine is named), for checking what a file produces.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <fstream>
#include <iostream>

#include "base/fs.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "shell/driver.h"
#include "shell/project_guard.h"

namespace korvane::cli {
namespace {

struct CompileOptions {
  std::vector<std::string> words;
  SessionOptions session;
  std::string output;
  std::string varsFile;
};

int runCompile(const CompileOptions& o) {
  int status = 0;
  auto session = Session::open(o.session, hosts::EngineKind::None, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;
  const std::vector<std::string> entries = entriesFromWords(o.words);
  std::vector<std::string> outputs = projectOutputs(ctx.projectFolder, {}, "", "");
  if (!o.output.empty()) outputs.push_back(fs::absolute(fromTerminal(o.output)));
  if (!o.varsFile.empty()) outputs.push_back(fs::absolute(fromTerminal(o.varsFile)));
  if (refusesOwnInput(ctx, entries, outputs)) return 2;

  std::ofstream file;
  std::ostream* out = &std::cout;
  if (!o.output.empty()) {
    file.open(fs::native(fromTerminal(o.output)), std::ios::binary | std::ios::trunc);
    if (!file) {
      printError(ctx.messages.format("Runtime", "write", fromTerminal(o.output)));
      return 1;
    }
    out = &file;
  }
  ctx.output.setMxTap([out](std::string_view line) {
    out->write(line.data(), static_cast<std::streamsize>(line.size()));
    out->write("\r\n", 2);
  });

  for (const auto& entry : entries)
    if (!ApplyOneFile(ctx, entry)) break;
  out->flush();
  int result = 0;
  if (!*out) {
    printError(
        ctx.messages.format("Runtime", "write", o.output.empty() ? "-" : fromTerminal(o.output)));
    result = 1;
  }

  if (!o.varsFile.empty()) {
    std::string text;
    for (const auto& item : ctx.vars.viewerItems()) text += item + "\r\n";
    if (!fs::writeFileAtomic(fromTerminal(o.varsFile), text)) {
      printError(ctx.messages.format("Runtime", "write", fromTerminal(o.varsFile)));
      result = 1;
    }
  }
  if (ctx.stop.set) {
    printError(ctx.stop.message);
    return 1;
  }
  return result;
}

}  // namespace

void addCompileCommand(CLI::App& app) {
  auto o = std::make_shared<CompileOptions>();
  auto* cmd = app.add_subcommand("compile", "Compile run entries into MX input");
  cmd->add_option("ENTRY", o->words, "Input file, optionally followed by [section]")->required();
  cmd->add_option("--project", o->session.project, "MX project folder (default: current folder)");
  cmd->add_option("--home", o->session.home, "Folder of Korvane.ini and the language files");
  cmd->add_option("-o,--output", o->output, "Write the MX lines here (default: standard output)");
  cmd->add_option("--vars", o->varsFile, "Write the final variable table here");
  cmd->add_option("--engine", o->session.engine, "none (default), embedded or mx");
  cmd->add_option("--answer", o->session.answers, "Answer to an input() question, in order");
  cmd->callback([o] { setExitCode(runCompile(*o)); });
}

}  // namespace korvane::cli
