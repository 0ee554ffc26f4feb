#include "shell/engine_choice.h"

#include "engine/embedded_engine.h"
#include "hosts/mx/null_engine.h"

#ifdef _WIN32
#include "hosts/automation/windows/com_system.h"
#include "hosts/mx/windows/mx_engine.h"
#endif

namespace korvane {

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
  using namespace hosts::windows;
  return mxInstalled(readMxNames(settingsFile)) ? EngineKind::Mx : EngineKind::Embedded;
#else
  (void)settingsFile;
  return EngineKind::Embedded;
#endif
}

std::unique_ptr<hosts::MxEngine> makeEngine(EngineKind kind, const EngineSettings& s,
                                            std::string& error) {
  switch (kind) {
    case EngineKind::None:
      return std::make_unique<hosts::NullEngine>(s.projectFolder, s.settings);
    case EngineKind::Embedded:
      return engine::EmbeddedEngine::create({s.projectFolder, s.settings, s.interrupted, s.looking},
                                            error);
    case EngineKind::Mx:
#ifdef _WIN32
      return hosts::windows::makeMxEngine(hosts::windows::makeComAutomationSystem(),
                                          hosts::windows::readMxNames(s.settingsFile), error);
#else
      error = "MX's automation is not installed on this machine";
      return nullptr;
#endif
  }
  return nullptr;
}

}  // namespace korvane
