#include "shell/startup.h"

#include <filesystem>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/profile.h"
#include "base/texts/cli_texts.h"
#include "shell/autocad_lookup.h"
#include "shell/cad_players.h"
#include "shell/driver.h"
#include "shell/input_sections.h"
#include "shell/standard_language.h"

namespace korvane {

std::string projectFolderFor(const std::string& named, const std::string& firstEntry) {
  std::string folder;
  if (!named.empty()) {
    folder = named;
  } else if (!firstEntry.empty()) {
    std::filesystem::path parent = fs::native(fs::absolute(firstEntry)).parent_path();
    if (cp::equalsIgnoreCase(fs::fromNative(parent.filename()), "inputs"))
      parent = parent.parent_path();
    folder = fs::fromNative(parent);
  }
  if (folder.empty()) folder = fs::currentFolder();
  return fs::withoutTrailingSeparator(fs::absolute(folder));
}

bool isProjectFolder(const std::string& folder) {
  return fs::folderExists(fs::join(folder, "inputs")) ||
         fs::fileExists(fs::join(folder, "korvane-models.db"));
}

namespace {

// The engine's settings: Korvane.ini's macro folders (relative ones in the
// project folder) and where MX's class and member names are set.
EngineSettings engineSettings(const std::string& project, const HomePaths& paths) {
  EngineSettings o;
  o.projectFolder = project;
  o.settingsFile = paths.settings;
  for (const char* key : {"PrivateMacros", "ProjectMacros", "PublicMacros"}) {
    std::string folder = ReadProfileString("MX", key, paths.settings);
    if (!folder.empty() && !fs::isAbsolute(folder)) folder = fs::join(project, folder);
    // Korvane's own macros (the long section's) lie in "macros" beside the
    // settings file; they are the private macros unless the settings name others.
    if (folder.empty() && std::string(key) == "PrivateMacros" &&
        fs::folderExists(fs::join(paths.home, "macros")))
      folder = fs::join(paths.home, "macros");
    o.settings[key] = folder;
  }
  return o;
}

const char* const kEngineNames[] = {"none", "embedded", "mx"};

}  // namespace

bool startUp(const StartupOptions& options, Startup& out, RunContext& ctx, std::string& error) {
  out.failureStatus = 2;
  if (!resolveHome(options.home, out.paths, error, options.language)) return false;
  ctx.settingsPath = out.paths.settings;
  ctx.messages = Messages(out.paths.language);
  ctx.language = &standardLanguage();

  EngineKind kind =
      options.defaultEngine ? *options.defaultEngine : defaultEngineKind(out.paths.settings);
  if (!options.engine.empty() && !parseEngineKind(options.engine, kind)) {
    error = ctx.messages.format(texts::cli::kEngineMissing, options.engine, "none|embedded|mx");
    return false;
  }
  if (options.looking && kind == EngineKind::Mx && options.engine.empty()) {
    kind = EngineKind::None;  // what MX runs cannot be undone
    out.note = ctx.messages.text(texts::cli::kLookingWithoutMx);
  }
  ctx.interrupted = options.interrupted;
  std::string reason;
  std::string project;
  if (kind == EngineKind::Mx) {
    // MX works in its own current project, and so do the compiled input and
    // the query files that it reads and writes there: the folder is MX's.
    out.failureStatus = 1;
    out.engine = makeEngine(kind, engineSettings("", out.paths), reason);
    if (out.engine) {
      try {
        project = fs::withoutTrailingSeparator(out.engine->project().currentFolder());
      } catch (const hosts::AutomationError& e) {
        reason = e.what();
        out.engine.reset();
      }
    }
    if (!out.engine) {
      error = ctx.messages.format(texts::cli::kEngineMissing, "mx", reason);
      return false;
    }
    const std::string named = options.project.empty() ? "" : projectFolderFor(options.project, "");
    if (!named.empty() && !cp::equalsIgnoreCase(named, project)) {
      error = ctx.messages.format(texts::cli::kMxProject, project, named);
      out.failureStatus = 2;
      return false;
    }
  } else {
    project = projectFolderFor(options.project, options.firstEntry);
  }
  if (!fs::folderExists(project)) {
    error = ctx.messages.format(texts::cli::kNoProject, project);
    return false;
  }
  ctx.projectFolder = fs::withTrailingSeparator(project);

  // The embedded engine keeps its models in the project folder: only a folder
  // that is one (or that the user named) gets a store.
  if (options.requireProject && kind == EngineKind::Embedded && options.project.empty() &&
      !isProjectFolder(project)) {
    error = ctx.messages.format(texts::cli::kNotProject, project) + "\n" +
            ctx.messages.text(texts::cli::kChooseProject);
    return false;
  }
  out.failureStatus = 1;
  if (!out.lock.acquire(project)) {
    error = ctx.messages.format(texts::cli::kBusy, project);
    return false;
  }
  if (!out.engine) {
    EngineSettings settings = engineSettings(project, out.paths);
    settings.interrupted = options.interrupted;
    settings.looking = options.looking;
    out.engine = makeEngine(kind, settings, reason);
  }
  if (!out.engine) {
    error = ctx.messages.format(texts::cli::kEngineMissing, kEngineNames[static_cast<int>(kind)],
                                reason);
    return false;
  }
  ctx.engine = out.engine.get();
  out.automation = hosts::makeAutomationSystem();
  ctx.players = makeCadPlayers(*out.automation);
  ctx.autocad = autoCadFinder(*out.automation);
  out.excel = hosts::makeExcelHost(*out.automation);
  ctx.excel = out.excel.get();
  out.failureStatus = 0;
  return true;
}

std::string forgottenBrackets(const std::string& previousEntry, const std::string& word) {
  if (word.empty() || word.find_first_of("[]./\\") != std::string::npos || fs::fileExists(word) ||
      fs::fileExists(word + ".ipm"))
    return {};
  const auto sections = readSections(parseRunEntry(previousEntry).path);
  if (!sections) return {};
  for (const std::string& s : *sections)
    if (cp::equalsIgnoreCase(s, word)) return "[" + word + "]";
  return {};
}

std::string absoluteRunEntry(const std::string& entry) {
  const std::size_t at = entry.find(" [");
  const std::string path = at == std::string::npos ? entry : entry.substr(0, at);
  return fs::absolute(path) + (at == std::string::npos ? "" : entry.substr(at));
}

}  // namespace korvane
