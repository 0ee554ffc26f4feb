// What a compile run shares, split by what it is:
//  - RunEnvironment: the run's settings and hosts, set up once by the shell;
//  - CompileState: what the compile pass, the expressions, the functions and
//    the commands change as the run goes on.
// The compiler works on RunContext, which is both. Functions and extended
// commands see the narrower CallContext (compiler/call_context.h).
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/messages.h"
#include "compiler/compile_observer.h"
#include "compiler/compiled_output.h"
#include "compiler/expression_tree.h"
#include "compiler/line_reader.h"
#include "compiler/source_cache.h"
#include "compiler/source_map.h"
#include "compiler/variable_table.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "hosts/mx.h"

namespace korvane {

struct RunContext;
struct LanguageTables;

// The stop state: set by the driver when a failure ended the run, with the
// message to show; the Run command reads it and ends the run.
struct StopState {
  bool set = false;
  std::string message;
  void raise(std::string text) {
    set = true;
    message = std::move(text);
  }
  void clear() {
    set = false;
    message.clear();
  }
};

// Where and why a run-time failure ended the compile, for front ends that
// show more than the message.
struct FailureReport {
  std::string description;  // the language file's text for the failure
  std::string file;
  long line = 0;
  std::string lineText;
};

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

// The answer of the model queries, shared by the functions and commands that
// read MX data: the status word of the last data-access call, the point
// record it filled and the point count of the last string-information query.
struct QueryState {
  std::int32_t status = 0;
  hosts::PointRecord record;
  std::int32_t pointCount = 0;
};

// Reaches the running AutoCAD for the AutoCAD getters: its application
// object, or a StopMessage ("s15", "s17") when there is none. Left empty,
// there is no AutoCAD on the machine.
using AutoCadFinder = std::function<hosts::AutoObject(RunContext&)>;

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
  std::function<void(int run)> onEngineRun;  // MX runs of the current entry, for progress
  // Variables set before every entry (name, value), as the user gave them.
  std::vector<std::pair<std::string, std::string>> presets;

  // Macro folders asked of MX (empty when it has none).
  std::string projectMacros() const;
  std::string privateMacros() const;
  std::string mxProjectFolder() const;

  std::string text(const char* section, const char* key) const {
    return messages.text(section, key);
  }
  void status(const std::string& t) const {
    if (statusSink) statusSink->status(t);
  }
  void writeLog(const std::string& line) const {
    if (log) log(line);
  }
};

struct CompileState {
  CompileState() { output.setSourceMap(&sourceMap); }
  CompileState(const CompileState&) = delete;
  CompileState& operator=(const CompileState&) = delete;

  VariableTable vars;
  StopState stop;
  std::optional<FailureReport> failure;  // the run-time failure that set the stop state
  std::array<std::string, 15> fields;
  std::size_t fieldsUsed = 0;        // fields beyond this many are empty
  std::array<std::string, 15> args;  // the arguments of the function call being dispatched
  int argCount = 0;
  std::vector<std::string> selection;  // string labels that `repeat=each...` iterates
  QueryState query;
  std::int32_t tempCounter = 0;
  int depth = 0;  // nesting of the compile pass
  // What each depth of the compile pass keeps from one call to the next (a
  // deque: growing keeps the storage of the calls under way where it is), so
  // that a part read pass after pass allocates nothing for its names and lines.
  struct CallStorage {
    LineReader reader;
    std::string folder, name, assignText, lastInsertAssign;
    std::string read, raw, work;
    // The file the last call at this depth read, and where its first line to
    // compile began: a part read pass after pass is found and searched once
    // while the source cache holds its text.
    struct Reentry {
      std::string fileSpec, baseFolder, currentFile;
      int mode = -1;
      std::uint64_t generation = 0;
      const FoundFile* found = nullptr;
      std::shared_ptr<const SourceCache::HeldFile> held;
      LineReader::Mark start;
    } again;
  };
  std::deque<CallStorage> callStorage;
  int expressionDepth = 0;  // nesting of the expression evaluator
  ExpressionCache expressions;
  // Where the compile stands: the file and line read last, for messages about
  // MX runs that a flush started there.
  std::string whereFile;
  long whereLine = 0;
  const void* whereOwner = nullptr;
  SourceMap sourceMap;  // where each compiled line came from
  CompiledOutput output;
  SourceCache sources;  // input files read in this run, until something may change them
  SaveFiles save;
  // Files written besides the compiled output (workbooks), by path.
  std::set<std::string> filesWritten;
  int engineRuns = 0;          // MX runs of the current entry
  CompileObservers observers;  // diagnostics and progress
  int barDepth = 0;            // inside |...| of a line
  int rowDepth = 0;            // in the values of a data row, which are text, not names
};

struct RunContext : RunEnvironment, CompileState {};

}  // namespace korvane
