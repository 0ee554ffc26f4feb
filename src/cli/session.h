// What every command that compiles needs: the home folder with its settings
// and language files, the project folder, the engine, and a run context wired
// to the terminal.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "compiler/run_context.h"
#include "shell/engine_choice.h"
#include "shell/project_guard.h"
#include "shell/startup.h"

namespace korvane::cli {

// Answers `input` from --answer texts in order, then from standard input with
// the question on standard error; the end of input counts as cancelled.
class TerminalPrompt final : public InputPrompt {
 public:
  explicit TerminalPrompt(std::vector<std::string> answers);
  bool ask(const std::string& title, const std::string& prompt, std::string& answer) override;

 private:
  std::deque<std::string> answers_;
};

struct SessionOptions {
  std::string home;
  std::string project;
  std::string engine;  // "" = the command's default
  std::vector<std::string> answers;
  std::string firstEntry;  // the run's first input file, absolute: its folder finds the project
  std::vector<std::string> presets;       // -D NAME=VALUE
  std::vector<std::string> macroFolders;  // -I DIR
  bool looking = false;                   // check, compile, a dry run: the models stay as they are
};

class Session {
 public:
  // Returns null after printing the reason (exit status in `status`).
  // The engine is the one named, else MX where Korvane.ini's MX classes are
  // registered (unless only looking), else the embedded one. Ctrl-C stops
  // the run (interrupt_signal.h).
  static std::unique_ptr<Session> open(const SessionOptions& options, int& status);

  Startup started;  // the project folder's hold, home paths and engine; let go last
  RunContext ctx;
  std::unique_ptr<TerminalPrompt> prompt;
};

// Run entries from the command line's entry words ("a.ipf" or "a.ipf [main]"):
// relative paths are taken from the current folder.
std::vector<std::string> entriesFromWords(const std::vector<std::string>& words);

// The run-entry words' input files.
std::vector<std::string> entryFiles(const std::vector<std::string>& entries);

// Prints the refusal and returns true when one of the files the run reads is
// among `outputs`.
bool refusesOwnInput(const RunContext& ctx, const std::vector<std::string>& entries,
                     const std::vector<std::string>& outputs);

// Text in the users' code page to the terminal, and back. The terminal's
// encoding is the locale's (UTF-8 where the locale names none).
std::string toTerminal(const std::string& cpText);
void printError(const std::string& cpText);
std::string fromTerminal(const std::string& text);

}  // namespace korvane::cli
