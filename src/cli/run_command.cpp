// korvane run: runs entries through MX (or the embedded engine) as the Run
// command does, with progress as it goes and a summary at the end. Also the
// batch form `korvane ENTRY`, where the words make one run entry. A dry run
// (--dry-run) runs on the embedded engine's models and undoes every change
// at its end, and says what the run would have changed.
#include "shell/run_command.h"

#include <sys/stat.h>
#include <unistd.h>
#ifdef _WIN32
#include <windows.h>
#endif

#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <map>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/similar.h"
#include "base/texts/cli_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "cli/warnings.h"
#include "engine/embedded_engine.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "shell/driver.h"
#include "shell/model_changes.h"
#include "shell/progress_meter.h"
#include "shell/project_guard.h"

namespace korvane::cli {
namespace {

void print(const std::string& cpText, bool newline = true) {
  std::fputs(toTerminal(cpText).c_str(), stdout);
  if (newline) std::fputc('\n', stdout);
  std::fflush(stdout);
}

// Progress on standard output: the entry, then on a terminal one live line
// (where the compile stands, lines compiled, MX runs and what asked for the
// last) redrawn a few times a second, elsewhere a plain line now and then;
// at the entry's end one line of its counts and what asked for its MX runs.
class TerminalProgress final : public RunProgress {
 public:
  TerminalProgress(RunContext& ctx, Warnings* warnings)
      : ctx_(ctx),
        warnings_(warnings),
        tty_(::isatty(fileno(stdout))),
        meter_(ctx.messages, tty_ ? std::chrono::milliseconds(200) : std::chrono::seconds(10),
               [this](const std::string& text) { show(text); }) {
    ctx_.observers.add(&meter_);
  }
  ~TerminalProgress() override { ctx_.observers.remove(&meter_); }
  void entryStarted(std::size_t i, std::size_t n, const std::string& entry) override {
    meter_.startEntry();
    print("[" + std::to_string(i + 1) + "/" + std::to_string(n) + "] " +
          ctx_.messages.format(texts::cli::kEntry, entry));
  }
  void engineRun(std::size_t, const EngineRunCause& run) override { meter_.engineRun(run); }
  void entryFinished(std::size_t, bool) override {
    // The counts the entry ended with, over the live line.
    print((open_ ? "\r      " : "      ") + meter_.summary() + (open_ ? "\x1b[K" : ""));
    open_ = false;
    if (warnings_) warnings_->print();
  }

 private:
  void show(const std::string& text) {
    if (tty_) {
      print("\r      " + text + "\x1b[K", false);  // one line, redrawn in place
      open_ = true;
    } else {
      print("      " + text);
    }
  }

  RunContext& ctx_;
  Warnings* warnings_;
  bool tty_;
  bool open_ = false;
  ProgressMeter meter_;
};

// What the project folder holds: name -> (size, time).
using FolderState = std::map<std::string, std::pair<std::uintmax_t, std::int64_t>>;

// True for the files our own standard output and error are redirected to:
// the shell wrote those, not the run.
bool isOwnOutput(const std::filesystem::path& p) {
#ifdef _WIN32
  // The same file: the same volume and the same file index.
  HANDLE h = CreateFileW(p.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  BY_HANDLE_FILE_INFORMATION file{};
  const bool known = GetFileInformationByHandle(h, &file) != 0;
  CloseHandle(h);
  if (!known) return false;
  for (DWORD which : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    BY_HANDLE_FILE_INFORMATION out{};
    HANDLE std = GetStdHandle(which);
    if (std && std != INVALID_HANDLE_VALUE && GetFileInformationByHandle(std, &out) &&
        out.dwVolumeSerialNumber == file.dwVolumeSerialNumber &&
        out.nFileIndexHigh == file.nFileIndexHigh && out.nFileIndexLow == file.nFileIndexLow)
      return true;
  }
  return false;
#else
  struct stat file {};
  if (::stat(p.c_str(), &file) != 0) return false;
  for (int fd : {1, 2}) {
    struct stat out {};
    if (::fstat(fd, &out) == 0 && out.st_dev == file.st_dev && out.st_ino == file.st_ino)
      return true;
  }
  return false;
#endif
}

FolderState folderState(const std::string& folder) {
  FolderState s;
  std::error_code ec;
  for (const auto& e : std::filesystem::directory_iterator(fs::native(folder), ec)) {
    if (!e.is_regular_file(ec) || isOwnOutput(e.path())) continue;
    const std::string name = e.path().filename().string();
    if (name.rfind("korvane-models.db-", 0) == 0) continue;  // the store's companions
    s[fs::fromNative(e.path().filename())] = {e.file_size(ec),
                                              fs::modifiedTime(e.path()).value_or(0)};
  }
  return s;
}

using engine::ModelSummary;

// The embedded engine's models; other engines cannot list theirs.
std::vector<ModelSummary> models(hosts::MxEngine* engine) {
  auto* embedded = dynamic_cast<engine::EmbeddedEngine*>(engine);
  if (!embedded) return {};
  try {
    return embedded->models();
  } catch (const engine::EngineError&) {
    return {};  // a store that cannot be read has none to summarise; the run says why
  }
}

bool sameModel(const ModelSummary& a, const ModelSummary& b) {
  return a.name == b.name && a.strings == b.strings && a.points == b.points;
}

void printModelsChanged(const RunContext& ctx, const std::vector<ModelSummary>& modelsBefore) {
  std::string changed;
  for (const auto& m : models(ctx.engine)) {
    bool same = false;
    for (const auto& b : modelsBefore) same = same || sameModel(b, m);
    if (same) continue;
    if (!changed.empty()) changed += ", ";
    changed += "\"" + m.name + "\" (" + modelCounts(ctx.messages, m.strings, m.points) + ")";
  }
  print(ctx.messages.format(texts::cli::kSummaryModels, changed.empty() ? "-" : changed));
}

// What a dry run changed before its changes were undone.
void printWouldChange(const RunContext& ctx, const std::optional<ModelsState>& before) {
  const auto after = modelsState(ctx.engine);
  if (!before || !after) return;  // a store that cannot be read: the run says why
  const std::vector<std::string> lines = describeChanges(ctx.messages, *before, *after);
  if (lines.empty()) return print(ctx.messages.text(texts::cli::kDryRunNoChange));
  print(ctx.messages.text(texts::cli::kDryRunChanges));
  for (const std::string& line : lines) print(line);
}

void printFilesWritten(const RunContext& ctx, const FolderState& before) {
  std::string files;
  for (const auto& [name, state] : folderState(ctx.projectFolder)) {
    auto it = before.find(name);
    if (it != before.end() && it->second == state) continue;
    if (!files.empty()) files += ", ";
    files += name;
  }
  // Files the run wrote elsewhere (workbooks of the excel folder, or of any
  // folder), by their place in the project folder where they lie in it.
  for (const std::string& path : ctx.filesWritten) {
    const std::string& folder = ctx.projectFolder;
    const bool inside = path.size() > folder.size() && path.compare(0, folder.size(), folder) == 0;
    const std::string name = inside ? path.substr(folder.size()) : path;
    if (inside && name.find_first_of("\\/") == std::string::npos) continue;  // listed above
    if (!files.empty()) files += ", ";
    files += name;
  }
  print(ctx.messages.format(texts::cli::kSummaryFiles, files.empty() ? "-" : files));
}

// Models that a query's GENIO request made, empty, because they were not there.
void printMadeEmpty(const RunContext& ctx) {
  std::string empty;
  for (const std::string& m : ctx.warnings.emptyModels)
    empty += (empty.empty() ? "\"" : ", \"") + m + "\"";
  if (!empty.empty()) print(ctx.messages.format(texts::cli::kSummaryEmptyModels, empty));
}

struct RunOptions {
  std::vector<std::string> words;
  SessionOptions session;
  bool saveOne = false, saveSep = false, keepScripts = false, dryRun = false;
  WarningOptions warnings;
};

int runRun(RunOptions o, const std::vector<std::string>& entries) {
  int status = 0;
  if (!entries.empty()) o.session.firstEntry = parseRunEntry(entries.front()).path;
  if (o.dryRun && o.session.engine == "mx") {
    printError(cliText(texts::cli::kDryRunWithMx));
    return 2;
  }
  o.session.looking = o.dryRun;
  auto session = Session::open(o.session, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;

  ctx.players = makeCadPlayers(*session->started.automation, CadOptions{o.keepScripts});

  RunSettings settings = readRunSettings(ctx.settingsPath);
  if (o.saveOne) settings.saveOne = true;
  if (o.saveSep) settings.saveSeparate = true;
  if (refusesOwnInput(ctx, entries,
                      projectOutputs(ctx.projectFolder, entryFiles(entries), settings.combinedName,
                                     settings.saveSeparate ? settings.separatePrefix : "")))
    return 2;

  const FolderState filesBefore = folderState(ctx.projectFolder);
  const auto modelsBefore = models(ctx.engine);
  std::optional<ModelsState> stateBefore;
  if (o.dryRun) stateBefore = modelsState(ctx.engine);
  Warnings warnings(ctx, o.warnings);
  TerminalProgress progress(ctx, &warnings);
  RunOutcome outcome = runEntries(ctx, entries, settings, &progress);
  if (o.dryRun)
    printWouldChange(ctx, stateBefore);
  else
    printModelsChanged(ctx, modelsBefore);
  printFilesWritten(ctx, filesBefore);
  printMadeEmpty(ctx);
  if (outcome.stopped) {
    print(ctx.messages.format(texts::cli::kStopped, std::to_string(outcome.stoppedAt + 1)));
    printError(outcome.shown);
    return outcome.interrupted ? kInterruptedStatus : 1;
  }
  print(countText(ctx.messages, static_cast<long>(outcome.entriesRun), texts::cli::kDoneOne,
                  texts::cli::kDone));
  return 0;
}

void addOptions(CLI::App* cmd, RunOptions& o) {
  addSessionOptions(cmd, o.session);
  cmd->add_flag("--save-one", o.saveOne, cliText(texts::cli::kHelpSaveOne));
  cmd->add_flag("--save-sep", o.saveSep, cliText(texts::cli::kHelpSaveSeparate));
  cmd->add_flag("--keep-scripts", o.keepScripts, cliText(texts::cli::kHelpKeepScripts));
  addWarningsOption(cmd, o.warnings);
  cmd->add_flag("--dry-run", o.dryRun, cliText(texts::cli::kHelpDryRun));
}

}  // namespace

void addRunCommand(CLI::App& app) {
  auto o = std::make_shared<RunOptions>();
  auto* cmd = app.add_subcommand("run", cliText(texts::cli::kHelpRun));
  cmd->add_option("ENTRY", o->words, cliText(texts::cli::kHelpEntry))->required();
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
    const std::string closest = text::closestWord(words.front(), commands);
    std::cerr << "korvane: " << cliText(texts::cli::kNoEntry, words.front()) << "\n";
    if (!closest.empty()) std::cerr << cliText(texts::cli::kDidYouMean, closest) << "\n";
    std::cerr << cliText(texts::cli::kArgHint) << std::endl;
    return 2;
  }
  return runRun(o, entries);
}

}  // namespace korvane::cli
