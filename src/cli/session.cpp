#include "cli/session.h"

#include <iostream>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/profile.h"
#include "shell/driver.h"
#include "shell/standard_language.h"

namespace korvane::cli {

std::string fromTerminal(const std::string& text) {
#ifdef _WIN32
  return text;
#else
  return cp::looksLikeUtf8(text) ? cp::fromUtf8(text) : text;
#endif
}

void printError(const std::string& cpText) {
#ifdef _WIN32
  std::cerr << cpText << std::endl;
#else
  std::cerr << cp::toUtf8(cpText) << std::endl;
#endif
}

TerminalPrompt::TerminalPrompt(std::vector<std::string> answers)
    : answers_(answers.begin(), answers.end()) {}

bool TerminalPrompt::ask(const std::string& title, const std::string& prompt, std::string& answer) {
  if (!answers_.empty()) {
    answer = answers_.front();
    answers_.pop_front();
    return true;
  }
  printError(title + ": " + prompt);
  std::string line;
  if (!std::getline(std::cin, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  answer = fromTerminal(line);
  return true;
}

std::vector<std::string> entriesFromWords(const std::vector<std::string>& words) {
  std::vector<std::string> entries;
  for (const auto& raw : words) {
    std::string w = fromTerminal(raw);
    std::size_t at = w.find(" [");
    std::string path = at == std::string::npos ? w : w.substr(0, at);
    entries.push_back(fs::absolute(path) + (at == std::string::npos ? "" : w.substr(at)));
  }
  return entries;
}

std::vector<std::string> entryFiles(const std::vector<std::string>& entries) {
  std::vector<std::string> files;
  for (const auto& e : entries) files.push_back(parseRunEntry(e).path);
  return files;
}

bool refusesOwnInput(const RunContext& ctx, const std::vector<std::string>& entries,
                     const std::vector<std::string>& outputs) {
  auto clash = inputAmongOutputs(entryFiles(entries), outputs);
  if (!clash) return false;
  printError(ctx.messages.format("Cli", "self_output", *clash));
  return true;
}

std::unique_ptr<Session> Session::open(const SessionOptions& options,
                                       hosts::EngineKind defaultEngine, int& status) {
  auto s = std::make_unique<Session>();
  std::string error;
  if (!resolveHome(fromTerminal(options.home), s->paths, error)) {
    printError(error);
    status = 2;
    return nullptr;
  }
  RunContext& ctx = s->ctx;
  ctx.settingsPath = s->paths.settings;
  ctx.messages = Messages(s->paths.language);
  ctx.language = &standardLanguage();

  std::string project =
      options.project.empty() ? fs::currentFolder() : fromTerminal(options.project);
  project = fs::withoutTrailingSeparator(fs::absolute(project));
  if (!fs::folderExists(project)) {
    printError(ctx.messages.format("Messages", "s9", project));
    status = 2;
    return nullptr;
  }
  ctx.projectFolder = fs::withTrailingSeparator(project);
  if (!s->lock.acquire(project)) {
    printError(ctx.messages.format("Cli", "busy", project));
    status = 1;
    return nullptr;
  }

  hosts::EngineKind kind = defaultEngine;
  if (!options.engine.empty() && !hosts::parseEngineKind(options.engine, kind)) {
    printError(ctx.messages.format("Cli", "engine_missing", options.engine, "none|embedded|mx"));
    status = 2;
    return nullptr;
  }
  hosts::EngineOptions engineOptions;
  engineOptions.projectFolder = project;
  for (const char* key : {"PrivateMacros", "ProjectMacros", "PublicMacros"}) {
    std::string folder = ReadProfileString("MX", key, s->paths.settings);
    if (!folder.empty() && !fs::isAbsolute(folder)) folder = fs::join(project, folder);
    engineOptions.settings[key] = folder;
  }
  s->engine = hosts::makeEngine(kind, engineOptions, error);
  if (!s->engine) {
    // The command line was right; the engine cannot start here (a damaged store, no MX).
    static const char* const kNames[] = {"none", "embedded", "mx"};
    printError(ctx.messages.format("Cli", "engine_missing", kNames[static_cast<int>(kind)], error));
    status = 1;
    return nullptr;
  }
  ctx.engine = s->engine.get();
  s->prompt = std::make_unique<TerminalPrompt>(options.answers);
  ctx.prompt = s->prompt.get();
  ctx.log = [](const std::string& line) { printError(line); };
  return s;
}

}  // namespace korvane::cli
