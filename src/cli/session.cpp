#include "cli/session.h"

#include <cctype>
#include <clocale>
#include <iostream>
#ifndef _WIN32
#include <iconv.h>
#include <langinfo.h>
#endif

#include <CLI/CLI.hpp>

#include "base/codepage.h"
#include "base/fs.h"
#include "base/texts/cli_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/interrupt_signal.h"
#include "cli/warnings.h"
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

#ifndef _WIN32
namespace {

// The locale's character set when it is neither UTF-8 nor plain ASCII (which
// modern terminals show as UTF-8); empty otherwise.
const std::string& terminalCharset() {
  static const std::string charset = [] {
    std::setlocale(LC_CTYPE, "");
    std::string name = nl_langinfo(CODESET);
    std::string upper;
    for (char c : name) upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (upper == "UTF-8" || upper == "UTF8" || upper == "ANSI_X3.4-1968" || upper == "ASCII")
      return std::string();
    return name;
  }();
  return charset;
}

// Windows-1250 to another character set; nothing when iconv cannot.
bool convertTo(const std::string& charset, const std::string& text, std::string& out) {
  iconv_t cd = iconv_open((charset + "//TRANSLIT").c_str(), "WINDOWS-1250");
  if (cd == reinterpret_cast<iconv_t>(-1)) return false;
  std::string in = text;
  out.assign(in.size() * 4 + 4, '\0');
  char* src = in.data();
  char* dst = out.data();
  std::size_t left = in.size(), room = out.size();
  const bool ok = iconv(cd, &src, &left, &dst, &room) != static_cast<std::size_t>(-1);
  iconv_close(cd);
  out.resize(out.size() - room);
  return ok;
}

}  // namespace
#endif

std::string toTerminal(const std::string& cpText) {
#ifdef _WIN32
  return cpText;
#else
  const std::string& charset = terminalCharset();
  std::string out;
  if (!charset.empty() && convertTo(charset, cpText, out)) return out;
  return cp::toUtf8(cpText);
#endif
}

void printError(const std::string& cpText) { std::cerr << toTerminal(cpText) << std::endl; }

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
  std::string typed;  // the entry before, as typed
  for (const auto& raw : words) {
    const std::string word = fromTerminal(raw);
    const std::string label = entries.empty() ? "" : forgottenBrackets(entries.back(), word);
    if (label.empty()) {
      entries.push_back(absoluteRunEntry(word));
      typed = parseRunEntry(word).path;
      continue;
    }
    // "road.ipf main" is "road.ipf [main]"; "road.ipf [a] b" runs [a], then [b].
    const RunEntry before = parseRunEntry(entries.back());
    printError(cliMessages().format(texts::cli::kBracketless, typed, word));
    if (before.section.empty()) entries.pop_back();
    entries.push_back(before.path + " " + label);
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
  printError(ctx.messages.format(texts::cli::kSelfOutput, *clash));
  return true;
}

void addSessionOptions(CLI::App* cmd, SessionOptions& session) {
  cmd->add_option("--project", session.project, cliText(texts::cli::kHelpProject));
  cmd->add_option("--home", session.home, cliText(texts::cli::kHelpHome));
  cmd->add_option("--engine", session.engine, cliText(texts::cli::kHelpEngine));
  cmd->add_option("--answer", session.answers, cliText(texts::cli::kHelpAnswer));
  cmd->add_option("-D,--define", session.presets, cliText(texts::cli::kHelpDefine))
      ->allow_extra_args(false);
  cmd->add_option("-I,--include", session.macroFolders, cliText(texts::cli::kHelpInclude))
      ->allow_extra_args(false);
}

void addWarningsOption(CLI::App* cmd, WarningOptions& warnings) {
  cmd->add_flag("--warnings", warnings.findings, cliText(texts::cli::kHelpWarnings));
  cmd->add_flag("--strict", warnings.strict, cliText(texts::cli::kHelpStrict));
  cmd->add_flag("-w", warnings.silent, cliText(texts::cli::kHelpNoWarnings));
}

std::unique_ptr<Session> Session::open(const SessionOptions& options, int& status) {
  auto s = std::make_unique<Session>();
  StartupOptions startup;
  startup.home = fromTerminal(options.home);
  startup.project = fromTerminal(options.project);
  startup.engine = options.engine;
  startup.firstEntry = options.firstEntry;
  startup.requireProject = true;
  startup.language = fromTerminal(cliLanguage());
  startup.looking = options.looking;
  startup.interrupted = watchInterrupt();
  std::string error;
  if (!startUp(startup, s->started, s->ctx, error)) {
    printError(error);
    status = s->started.failureStatus;
    return nullptr;
  }
  if (!s->started.note.empty()) printError(s->started.note);
  for (const std::string& preset : options.presets) {
    const std::string text = fromTerminal(preset);
    const std::size_t eq = text.find('=');
    const std::string name = eq == std::string::npos ? std::string() : text.substr(0, eq);
    if (name.empty() || name.find_first_of(" ,|\"") != std::string::npos) {
      printError(s->ctx.messages.format(texts::cli::kBadPreset, text));
      status = 2;
      return nullptr;
    }
    s->ctx.presets.emplace_back(name, text.substr(eq + 1));
  }
  for (const std::string& folder : options.macroFolders)
    s->ctx.extraMacroFolders.push_back(fs::absolute(fromTerminal(folder)));
  s->prompt = std::make_unique<TerminalPrompt>(options.answers);
  s->ctx.prompt = s->prompt.get();
  s->ctx.log = [](const std::string& line) { printError(line); };
  return s;
}

}  // namespace korvane::cli
