#include "shell/startup.h"

#include "base/fs.h"
#include "base/profile.h"
#include "shell/standard_language.h"

namespace korvane {

bool startUp(const StartupOptions& options, Startup& out, RunContext& ctx, std::string& error) {
  out.failureStatus = 2;
  if (!resolveHome(options.home, out.paths, error)) return false;
  ctx.settingsPath = out.paths.settings;
  ctx.messages = Messages(out.paths.language);
  ctx.language = &standardLanguage();

  std::string project = options.project.empty() ? fs::currentFolder() : options.project;
  project = fs::withoutTrailingSeparator(fs::absolute(project));
  if (!fs::folderExists(project)) {
    error = ctx.messages.format("Messages", "s9", project);
    return false;
  }
  ctx.projectFolder = fs::withTrailingSeparator(project);

  hosts::EngineKind kind = options.defaultEngine;
  if (!options.engine.empty() && !hosts::parseEngineKind(options.engine, kind)) {
    error = ctx.messages.format("Cli", "engine_missing", options.engine, "none|embedded|mx");
    return false;
  }
  out.failureStatus = 1;
  if (!out.lock.acquire(project)) {
    error = ctx.messages.format("Cli", "busy", project);
    return false;
  }
  hosts::EngineOptions engineOptions;
  engineOptions.projectFolder = project;
  engineOptions.settingsFile = out.paths.settings;
  for (const char* key : {"PrivateMacros", "ProjectMacros", "PublicMacros"}) {
    std::string folder = ReadProfileString("MX", key, out.paths.settings);
    if (!folder.empty() && !fs::isAbsolute(folder)) folder = fs::join(project, folder);
    engineOptions.settings[key] = folder;
  }
  std::string reason;
  out.engine = hosts::makeEngine(kind, engineOptions, reason);
  if (!out.engine) {
    static const char* const kNames[] = {"none", "embedded", "mx"};
    error = ctx.messages.format("Cli", "engine_missing", kNames[static_cast<int>(kind)], reason);
    return false;
  }
  ctx.engine = out.engine.get();
  out.failureStatus = 0;
  return true;
}

std::string absoluteRunEntry(const std::string& entry) {
  const std::size_t at = entry.find(" [");
  const std::string path = at == std::string::npos ? entry : entry.substr(0, at);
  return fs::absolute(path) + (at == std::string::npos ? "" : entry.substr(at));
}

}  // namespace korvane
