#include "compiler/run_context.h"

#include "shell/fs.h"

namespace korvane {

std::string RunContext::projectMacros() const {
  return engine ? engine->configuration().setting("ProjectMacros") : std::string();
}

std::string RunContext::privateMacros() const {
  return engine ? engine->configuration().setting("PrivateMacros") : std::string();
}

std::string RunContext::mxProjectFolder() const {
  return engine ? engine->project().currentFolder() : fs::withoutTrailingSeparator(projectFolder);
}

}  // namespace korvane
