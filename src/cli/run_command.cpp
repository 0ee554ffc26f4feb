// korvane run: runs entries through MX (or the embedded engine) as the Run
// command does, with progress as it goes and a summary at the end. Also the
// batch form `korvane ENTRY`, where the words make one run entry.
#include "shell/run_command.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/similar.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "hosts/embedded/embedded_engine.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "shell/driver.h"
#include "shell/project_guard.h"

namespace korvane::cli {
namespace {

std::atomic<bool> g_interrupted{false};
extern "C" void onInterrupt(int) { g_interrupted = true; }

void print(const std::string& cpText, bool newline = true) {
  std::fputs(toTerminal(cpText).c_str(), stdout);
  if (newline) std::fputc('\n', stdout);
  std::fflush(stdout);
}

class TerminalProgress final : public RunProgress {
 public:
  explicit TerminalProgress(const RunContext& ctx) : ctx_(ctx), tty_(::isatty(fileno(stdout))) {}
  void entryStarted(std::size_t i, std::size_t n, const std::string& entry) override {
    print("[" + std::to_string(i + 1) + "/" + std::to_string(n) + "] " +
          ctx_.messages.format("Cli", "entry", entry));
  }
  void engineRun(std::size_t, int run) override {
    const std::string line = "      " + ctx_.messages.format("Cli", "mxrun", std::to_string(run));
    if (tty_) {
      print("\r" + line, false);  // one line that counts up
      open_ = true;
    } else {
      print(line);
    }
  }
  void entryFinished(std::size_t, bool) override {
    if (open_) print("");
    open_ = false;
  }

 private:
  const RunContext& ctx_;
  bool tty_;
  bool open_ = false;
};

// What the project folder holds: name -> (size, time).
using FolderState = std::map<std::string, std::pair<std::uintmax_t, std::int64_t>>;

FolderState folderState(const std::string& folder) {
  FolderState s;
  std::error_code ec;
  for (const auto& e : std::filesystem::directory_iterator(fs::native(folder), ec)) {
    if (!e.is_regular_file(ec)) continue;
    const std::string name = e.path().filename().string();
    if (name.rfind("korvane-models.db-", 0) == 0) continue;  // the store's companions
    s[fs::fromNative(e.path().filename())] = {e.file_size(ec),
                                              fs::modifiedTime(e.path()).value_or(0)};
  }
  return s;
}

using hosts::embedded::ModelSummary;

// The embedded engine's models; other engines cannot list theirs.
std::vector<ModelSummary> models(hosts::MxEngine* engine) {
  std::vector<ModelSummary> out;
  std::string error;
  if (auto* embedded = dynamic_cast<hosts::embedded::EmbeddedEngine*>(engine))
    embedded->models(out, error);
  return out;
}

bool sameModel(const ModelSummary& a, const ModelSummary& b) {
  return a.name == b.name && a.strings == b.strings && a.points == b.points;
}

void printSummary(const RunContext& ctx, const FolderState& before,
                  const std::vector<ModelSummary>& modelsBefore) {
  std::string changed;
  for (const auto& m : models(ctx.engine)) {
    bool same = false;
    for (const auto& b : modelsBefore) same = same || sameModel(b, m);
    if (same) continue;
    if (!changed.empty()) changed += ", ";
    changed += "\"" + m.name + "\" (" +
               ctx.messages.format("Cli", "model_counts", std::to_string(m.strings),
                                   std::to_string(m.points)) +
               ")";
  }
  std::string files;
  for (const auto& [name, state] : folderState(ctx.projectFolder)) {
    auto it = before.find(name);
    if (it != before.end() && it->second == state) continue;
    if (!files.empty()) files += ", ";
    files += name;
  }
  print(ctx.messages.format("Cli", "summary_models", changed.empty() ? "-" : changed));
  print(ctx.messages.format("Cli", "summary_files", files.empty() ? "-" : files));
}

struct RunOptions {
  std::vector<std::string> words;
  SessionOptions session;
  bool saveOne = false, saveSep = false, keepScripts = false;
};

int runRun(RunOptions o, const std::vector<std::string>& entries) {
  int status = 0;
  if (!entries.empty()) o.session.firstEntry = parseRunEntry(entries.front()).path;
  auto session = Session::open(o.session, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;

  ctx.players = makeCadPlayers(*session->started.automation, CadOptions{o.keepScripts});
  std::signal(SIGINT, onInterrupt);
  ctx.interrupted = &g_interrupted;

  RunSettings settings = readRunSettings(ctx.settingsPath);
  if (o.saveOne) settings.saveOne = true;
  if (o.saveSep) settings.saveSeparate = true;
  if (refusesOwnInput(ctx, entries,
                      projectOutputs(ctx.projectFolder, entryFiles(entries), settings.combinedName,
                                     settings.saveSeparate ? settings.separatePrefix : "")))
    return 2;

  const FolderState filesBefore = folderState(ctx.projectFolder);
  const auto modelsBefore = models(ctx.engine);
  TerminalProgress progress(ctx);
  RunOutcome outcome = runEntries(ctx, entries, settings, &progress);
  printSummary(ctx, filesBefore, modelsBefore);
  if (outcome.stopped) {
    print(ctx.messages.format("Cli", "stopped", std::to_string(outcome.stoppedAt + 1)));
    printError(outcome.message);
    return 1;
  }
  print(ctx.messages.format("Cli", "done", std::to_string(outcome.entriesRun)));
  return 0;
}

void addOptions(CLI::App* cmd, RunOptions& o) {
  cmd->add_option("--project", o.session.project, cliText("h_project"));
  cmd->add_option("--home", o.session.home, cliText("h_home"));
  cmd->add_option("--engine", o.session.engine, cliText("h_engine"));
  cmd->add_flag("--save-one", o.saveOne, cliText("h_saveone"));
  cmd->add_flag("--save-sep", o.saveSep, cliText("h_savesep"));
  cmd->add_flag("--keep-scripts", o.keepScripts, cliText("h_keepscripts"));
  cmd->add_option("--answer", o.session.answers, cliText("h_answer"));
  addPresetOption(cmd, o.session.presets);
}

}  // namespace

void addRunCommand(CLI::App& app) {
  auto o = std::make_shared<RunOptions>();
  auto* cmd = app.add_subcommand("run", cliText("h_run"));
  cmd->add_option("ENTRY", o->words, cliText("h_entry"))->required();
  addOptions(cmd, *o);
  cmd->callback([o] { setExitCode(runRun(*o, entriesFromWords(o->words))); });
}

int runBatch(const std::vector<std::string>& words) {
  RunOptions o;
  std::string entry;
  for (const auto& w : words) entry += (entry.empty() ? "" : " ") + w;
  const std::vector<std::string> entries = entriesFromWords({entry});
  // A word that is neither a command nor a file is refused before anything
  // is written.
  const std::string file = parseRunEntry(entries.front()).path;
  if (!fs::fileExists(file)) {
    const std::vector<std::string> commands = {"compile",  "run",    "check",
                                               "sections", "models", "help"};
    const std::string near = text::closestWord(words.front(), commands);
    std::cerr << "korvane: " << cliText("no_entry", words.front()) << "\n";
    if (!near.empty()) std::cerr << cliText("did_you_mean", near) << "\n";
    std::cerr << cliText("arg_hint") << std::endl;
    return 2;
  }
  return runRun(o, entries);
}

}  // namespace korvane::cli
