#include "cli/session.h"

#include <iostream>

#include "base/codepage.h"
#include "base/fs.h"
#include "shell/driver.h"
#include "shell/startup.h"

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
  for (const auto& raw : words) entries.push_back(absoluteRunEntry(fromTerminal(raw)));
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
  StartupOptions startup{fromTerminal(options.home), fromTerminal(options.project), options.engine,
                         defaultEngine};
  std::string error;
  if (!startUp(startup, s->started, s->ctx, error)) {
    printError(error);
    status = s->started.failureStatus;
    return nullptr;
  }
  s->prompt = std::make_unique<TerminalPrompt>(options.answers);
  s->ctx.prompt = s->prompt.get();
  s->ctx.log = [](const std::string& line) { printError(line); };
  return s;
}

}  // namespace korvane::cli
