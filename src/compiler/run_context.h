// Everything a compile run shares between the compile pass, the expression
// evaluator, the functions and the extended commands: the variable table, the
// stop state, the current line and its fields, the argument array, the
// selection list, the compiled output and the hosts it talks to.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "compiler/compiled_output.h"
#include "compiler/variable_table.h"
#include "hosts/mx.h"
#include "shell/messages.h"

namespace korvane {

struct RunContext;

// The stop state: set by whoever ends the run early, with the message to show.
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

// Where and why a run-time failure ended the compile.
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

struct RunContext {
  // Settings of the run.
  std::string projectFolder;  // ends with a separator
  std::string settingsPath;
  Messages messages;
  hosts::MxEngine* engine = nullptr;
  ChannelPlayers players;
  InputPrompt* prompt = nullptr;
  StatusSink* statusSink = nullptr;
  std::function<void(const std::string&)> log;  // the run's log (trapped failures)

  // Shared state of the compile.
  VariableTable vars;
  StopState stop;
  std::optional<FailureReport> failure;
  std::string currentLine;
  std::array<std::string, 15> fields;
  std::array<std::string, 15> args;
  int argCount = 0;
  int expectedArgs = 0;
  std::int32_t queryStatus = 0;
  std::int32_t pointCount = 0;
  hosts::PointRecord pointRecord;
  std::vector<std::string> selection;
  std::int32_t tempCounter = 0;
  std::string labelSeed = "S000";
  int depth = 0;  // nesting of the compile pass
  // Where the compile stands: the file and line read last, for messages about
  // MX runs that a flush started there.
  std::string whereFile;
  long whereLine = 0;
  const void* whereOwner = nullptr;
  CompiledOutput output;
  SaveFiles save;
  int engineRuns = 0;  // MX runs of the current entry, for progress reports
  std::function<void(int run)> onEngineRun;
  // Set from outside (Ctrl-C, the window's stop button) to end the run at the next line.
  const std::atomic<bool>* interrupted = nullptr;

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

}  // namespace korvane
