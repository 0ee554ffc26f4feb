#include "hosts/engine_factory.h"

#include "hosts/embedded/embedded_engine.h"
#include "hosts/null_engine.h"

#ifdef _WIN32
#include "hosts/windows/com_system.h"
#include "hosts/windows/mx_engine.h"
#endif

namespace korvane::hosts {

bool parseEngineKind(const std::string& word, EngineKind& kind) {
  if (word == "none")
    kind = EngineKind::None;
  else if (word == "embedded")
    kind = EngineKind::Embedded;
  else if (word == "mx")
    kind = EngineKind::Mx;
  else
    return false;
  return true;
}

EngineKind defaultEngineKind(const std::string& settingsFile) {
#ifdef _WIN32
  return windows::mxInstalled(windows::readMxNames(settingsFile)) ? EngineKind::Mx
                                                                  : EngineKind::Embedded;
#else
  (void)settingsFile;
  return EngineKind::Embedded;
#endif
}

std::unique_ptr<MxEngine> makeEngine(EngineKind kind, const EngineOptions& options,
                                     std::string& error) {
  switch (kind) {
    case EngineKind::None:
      return std::make_unique<NullEngine>(options.projectFolder, options.settings);
    case EngineKind::Embedded:
      return embedded::EmbeddedEngine::create(options, error);
    case EngineKind::Mx:
#ifdef _WIN32
      return windows::makeMxEngine(windows::makeComAutomationSystem(),
                                   windows::readMxNames(options.settingsFile), error);
#else
      error = "MX's automation is not installed on this machine";
      return nullptr;
#endif
  }
  return nullptr;
}

}  // namespace korvane::hosts
