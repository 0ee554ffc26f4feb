#include "hosts/engine_factory.h"

#include "hosts/embedded/embedded_engine.h"
#include "hosts/null_engine.h"

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

EngineKind defaultEngineKind() {
#ifdef _WIN32
  return EngineKind::Mx;
#else
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
      error = "MX's automation is not installed on this machine";
      return nullptr;
  }
  return nullptr;
}

}  // namespace korvane::hosts
