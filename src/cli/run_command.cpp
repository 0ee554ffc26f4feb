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
#include <map>

#include "base/codepage.h"
#include "base/fs.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "hosts/embedded/embedded_engine.h"
#include "shell/cad_players.h"
#include "shell/project_guard.h"

namespace korvane::cli {
namespace {

std::atomic<bool> g_interrupted{false};
extern "C" void onInterrupt(int) { g_interrupted = true; }

void print(const std::string& cpText, bool newline = true) {
#ifdef _WIN32
  std::fputs(cpText.c_str(), stdout);
#else
  std::fputs(cp::toUtf8(cpText).c_str(), stdout);
#endif
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
    if (name.size() > 8 && name.compare(name.size() - 8, 8, "-journal") == 0)
      continue;  // SQLite's own
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

int runRun(const RunOptions& o, const std::vector<std::string>& entries) {
  int status = 0;
  auto session = Session::open(o.session, hosts::defaultEngineKind(), status);
  if (!session) return status;
  RunContext& ctx = session->ctx;

  auto automation = hosts::makeAutomationSystem();
  ctx.players = makeCadPlayers(*automation, CadOptions{o.keepScripts});
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
  cmd->add_option("--project", o.session.project, "MX project folder (default: current folder)");
  cmd->add_option("--home", o.session.home, "Folder of Korvane.ini and the language files");
  cmd->add_option("--engine", o.session.engine, "embedded, mx or none");
  cmd->add_flag("--save-one", o.saveOne, "Also keep all compiled MX input in one file");
  cmd->add_flag("--save-sep", o.saveSep, "Also keep the compiled MX input of each file");
  cmd->add_flag("--keep-scripts", o.keepScripts,
                "Keep numbered copies of AutoCAD scripts and key-in files; go on without CAD");
  cmd->add_option("--answer", o.session.answers, "Answer to an input() question, in order");
}

}  // namespace

void addRunCommand(CLI::App& app) {
  auto o = std::make_shared<RunOptions>();
  auto* cmd = app.add_subcommand("run", "Compile and run entries through MX");
  cmd->add_option("ENTRY", o->words, "Input file, optionally followed by [section]")->required();
  addOptions(cmd, *o);
  cmd->callback([o] { setExitCode(runRun(*o, entriesFromWords(o->words))); });
}

int runBatch(const std::vector<std::string>& words) {
  RunOptions o;
  std::string entry;
  for (const auto& w : words) entry += (entry.empty() ? "" : " ") + w;
  return runRun(o, entriesFromWords({entry}));
}

}  // namespace korvane::cli
