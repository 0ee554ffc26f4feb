#include "compiler/run_context.h"

#include "base/fs.h"

namespace korvane {

std::string RunEnvironment::projectMacros() const {
  return engine ? engine->configuration().setting("ProjectMacros") : std::string();
}

std::string RunEnvironment::privateMacros() const {
  return engine ? engine->configuration().setting("PrivateMacros") : std::string();
}

std::string RunEnvironment::mxProjectFolder() const {
  return engine ? engine->project().currentFolder() : fs::withoutTrailingSeparator(projectFolder);
}

}  // namespace korvane
