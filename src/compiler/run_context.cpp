#include "compiler/run_context.h"

#include "base/fs.h"
#include "compiler/compile_internals.h"

namespace korvane {

RunContext::RunContext() : internals_(std::make_unique<CompileInternals>()) {
  output.setSourceMap(&internals_->sourceMap);
}

// The output outlives the source map it notes its lines in.
RunContext::~RunContext() { output.setSourceMap(nullptr); }

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
