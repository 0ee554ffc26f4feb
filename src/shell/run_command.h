// The Run command: works through a list of run entries from top to bottom,
// handing each to ApplyOneFile, with the save modes and the first-file marker,
// until one stops. Shared by the command line and the desktop window.
#pragma once

#include <string>
#include <vector>

#include "compiler/run_context.h"

namespace korvane {

// Progress of a run as it goes.
class RunProgress {
 public:
  virtual ~RunProgress() = default;
  virtual void entryStarted(std::size_t index, std::size_t total, const std::string& entry) {}
  virtual void engineRun(std::size_t index, const EngineRunCause& run) {}
  virtual void entryFinished(std::size_t index, bool ok) {}
};

struct RunSettings {
  bool saveOne = false;
  bool saveSeparate = false;
  std::string combinedName = "complete";     // "Files"/"inpf"
  std::string separatePrefix = "compiled_";  // "Files"/"comp"
};

// The save modes and save-file names kept in the settings file.
RunSettings readRunSettings(const std::string& settingsFile);

struct RunOutcome {
  std::size_t entriesRun = 0;  // entries that ran to their end
  bool stopped = false;
  bool interrupted = false;   // stopped from outside
  std::size_t stoppedAt = 0;  // 0-based index of the entry that stopped the run
  std::string message;        // the stop message
  std::string shown;          // the stop message with the lines that help (Stopped::shown)
};

RunOutcome runEntries(RunContext& ctx, const std::vector<std::string>& entries,
                      const RunSettings& settings, RunProgress* progress = nullptr);

}  // namespace korvane
