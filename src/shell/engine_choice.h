// Choosing the MX engine a command runs against: none, the embedded engine,
// or MX itself over its automation classes.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <string>

#include "hosts/mx.h"

namespace korvane {

enum class EngineKind { None, Embedded, Mx };

// Parses "none", "embedded" or "mx"; false for anything else.
bool parseEngineKind(const std::string& word, EngineKind& kind);
// "mx" where MX's automation is installed (its configuration class, as the
// settings file's [MX] section names it, is registered), "embedded" elsewhere.
EngineKind defaultEngineKind(const std::string& settingsFile);

struct EngineSettings {
  std::string projectFolder;                    // the MX project folder, no trailing separator
  std::map<std::string, std::string> settings;  // "PrivateMacros", "ProjectMacros", "PublicMacros"
  std::string settingsFile;                     // Korvane.ini: MX's class and member names
  const std::atomic<bool>* interrupted = nullptr;  // set from outside to stop a run
  bool looking = false;  // the embedded engine undoes every change when it ends
};

// Creates an engine. Returns null with a reason in `error` when the kind
// cannot run on this machine (MX's automation missing, store refused, ...).
std::unique_ptr<hosts::MxEngine> makeEngine(EngineKind kind, const EngineSettings& settings,
                                            std::string& error);

}  // namespace korvane
