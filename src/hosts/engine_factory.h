// Choosing the MX engine a command runs against.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "hosts/mx.h"

namespace korvane::hosts {

enum class EngineKind { None, Embedded, Mx };

// Parses "none", "embedded" or "mx"; false for anything else.
bool parseEngineKind(const std::string& word, EngineKind& kind);
// "mx" where MX's automation is installed (its configuration class, as the
// settings file's [MX] section names it, is registered), "embedded" elsewhere.
EngineKind defaultEngineKind(const std::string& settingsFile);

struct EngineOptions {
  std::string projectFolder;                    // the MX project folder, no trailing separator
  std::map<std::string, std::string> settings;  // "PrivateMacros", "ProjectMacros", "PublicMacros"
  std::string settingsFile;                     // Korvane.ini: MX's class and member names
};

// Creates an engine. Returns null with a reason in `error` when the kind
// cannot run on this machine (MX's automation missing, store refused, ...).
std::unique_ptr<MxEngine> makeEngine(EngineKind kind, const EngineOptions& options,
                                     std::string& error);

}  // namespace korvane::hosts
