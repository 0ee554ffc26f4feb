// What a compile run shares, split by what it is:
//  - RunEnvironment: the run's settings and hosts, set up once by the shell;
//  - CompileState: what the compile changes as the run goes on and the front
//    ends read: variables, compiled output, save files, files written,
//    observers;
//  - the compiler's own part (compiler/compile_internals.h), which nothing
//    outside the compiler sees.
// Functions and extended commands see the narrower CallContext
// (compiler/extension/call_context.h).
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "base/messages.h"
#include "compiler/compile_observer.h"
#include "compiler/compiled_output.h"
#include "compiler/run_warnings.h"
#include "compiler/variable_table.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "hosts/mx.h"

namespace korvane {

struct RunContext;
struct LanguageTables;

// Receives the texts of the status panel while a run goes on.
class StatusSink {
 public:
  virtual ~StatusSink() = default;
  virtual void status(const std::string& text) = 0;
};

// Asks the user for a text (the `input` function). Returns false when the
// question was cancelled.
class InputPrompt {
 public:
  virtual ~InputPrompt() = default;
  virtual bool ask(const std::string& title, const std::string& prompt, std::string& answer) = 0;
};

// Plays the AutoCAD script and MicroStation key-in channels when they are
// flushed. Left empty, there is no CAD on the machine: the script channel ends
// the run with the AutoCAD message and the key-in channel is a run-time failure.
struct ChannelPlayers {
  std::function<void(RunContext&, const std::string& scriptFile)> script;
  std::function<void(RunContext&, const std::string& keyinFile)> keyin;
};

// The save files of a run: all compiled MX input in one collecting file, and
// a separate file per input file.
struct SaveFiles {
  bool one = false;           // save mode "one combined file"
  bool separate = false;      // save mode "separate files"
  std::string combinedPath;   // project folder + "inpf" + ".inp"
  std::string separatePath;   // the current input file's separate file
  std::string inputName;      // the input file now compiled, as it is announced
  std::string lastAnnounced;  // the name announced last in the collecting file
  std::string lastCombinedLine, lastSeparateLine;
};

// Reaches the running AutoCAD for the AutoCAD getters: its application
// object, or a StopMessage (kNoAutocad, kAutocadRelease) when there is none.
// Left empty, there is no AutoCAD on the machine.
using AutoCadFinder = std::function<hosts::AutoObject(RunContext&)>;

// One MX run of an entry, for progress: its number in the entry, the function
// or directive that asked for it (empty: the entry's end) and the input line
// the compile stood at.
struct EngineRunCause {
  int number = 0;
  std::string_view asker;
  std::string file;
  long line = 0;
};

struct RunEnvironment {
  std::string projectFolder;  // ends with a separator
  std::string settingsPath;
  Messages messages;
  const LanguageTables* language = nullptr;  // directives and functions of the input language
  hosts::MxEngine* engine = nullptr;
  ChannelPlayers players;
  AutoCadFinder autocad;
  hosts::ExcelHost* excel = nullptr;  // workbooks and macros; none: not available here
  InputPrompt* prompt = nullptr;
  StatusSink* statusSink = nullptr;
  std::function<void(const std::string&)> log;  // the run's log (trapped failures)
  // Set from outside (Ctrl-C, the window's stop button) to end the run at the next line.
  const std::atomic<bool>* interrupted = nullptr;
  std::function<void(const EngineRunCause&)> onEngineRun;  // MX runs of the entry, for progress
  // Variables set before every entry (name, value), as the user gave them.
  std::vector<std::pair<std::string, std::string>> presets;
  // Folders named with -I: searched for a macro file after every place the
  // language searches, so that no file found there before changes.
  std::vector<std::string> extraMacroFolders;

  // Macro folders asked of MX (empty when it has none).
  std::string projectMacros() const;
  std::string privateMacros() const;
  std::string mxProjectFolder() const;

  std::string text(MessageKey key) const { return messages.text(key); }
  void status(const std::string& t) const {
    if (statusSink) statusSink->status(t);
  }
  void writeLog(const std::string& line) const {
    if (log) log(line);
  }
};

// What the compile changes as it goes and the front ends read.
struct CompileState {
  CompileState() = default;
  CompileState(const CompileState&) = delete;
  CompileState& operator=(const CompileState&) = delete;

  VariableTable vars;
  CompiledOutput output;
  SaveFiles save;
  // Files written besides the compiled output (workbooks), by path.
  std::set<std::string> filesWritten;
  CompileObservers observers;  // diagnostics and progress
  RunWarnings warnings;        // likely mistakes, shown by the front end
};

// The compile pass's and the evaluator's own state, and the compiler's way to
// it: both defined in compiler/compile_internals.h.
struct CompileInternals;
inline CompileInternals& internals(RunContext& ctx);
inline const CompileInternals& internals(const RunContext& ctx);

struct RunContext : RunEnvironment, CompileState {
  RunContext();
  ~RunContext();

 private:
  friend CompileInternals& internals(RunContext& ctx);
  friend const CompileInternals& internals(const RunContext& ctx);
  std::unique_ptr<CompileInternals> internals_;
};

}  // namespace korvane
