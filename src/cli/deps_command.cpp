// korvane deps ENTRY...: what the entries read and write, found by compiling
// them as `compile` does (queries answered from the models, every change to
// them undone at the end): the input and macro files and the sections of
// them, the files the run writes, the models its MX lines make, delete, edit
// or load. One a line, or with -M a make rule.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "base/codepage.h"
#include "base/texts/cli_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "compiler/compile_observer.h"
#include "shell/driver.h"

namespace korvane::cli {
namespace {

struct DepsOptions {
  std::vector<std::string> words;
  SessionOptions session;
  bool makeRule = false;
};

void addOnce(std::vector<std::string>& list, const std::string& item) {
  if (std::find(list.begin(), list.end(), item) == list.end()) list.push_back(item);
}

struct Reads final : CompileObserver {
  std::vector<std::string> files, sections;
  void fileEntered(const std::string& fullName) override { addOnce(files, fullName); }
  void sectionFound(const std::string& fullName, const std::string& label) override {
    addOnce(sections, fullName + " " + label);
  }
};

// The model a major option of an MX line names, when it changes one.
std::string modelWritten(std::string_view line) {
  const std::string word = cp::lower(std::string(line.substr(0, 4)));
  if (word != "crea" && word != "dele" && word != "edit" && word != "geni") return {};
  const std::size_t comma = line.find(',');
  if (comma == std::string_view::npos) return {};
  std::string_view name = line.substr(comma + 1);
  name = name.substr(0, name.find(','));
  while (!name.empty() && name.back() == ' ') name.remove_suffix(1);
  return std::string(name);
}

// A file name as make reads it: blanks escaped.
std::string makeWord(const std::string& path) {
  std::string out;
  for (char c : path) out += c == ' ' ? std::string("\\ ") : std::string(1, c);
  return out;
}

int runDeps(DepsOptions o) {
  int status = 0;
  const std::vector<std::string> entries = entriesFromWords(o.words);
  if (!entries.empty()) o.session.firstEntry = parseRunEntry(entries.front()).path;
  o.session.looking = true;  // the models stay as they are
  auto session = Session::open(o.session, status);
  if (!session) return status;
  RunContext& ctx = session->ctx;
  Reads reads;
  ctx.observers.add(&reads);
  std::vector<std::string> models;
  ctx.output.setMxTap([&models](std::string_view line) {
    if (std::string model = modelWritten(line); !model.empty()) addOnce(models, model);
  });
  std::optional<Stopped> stopped;
  for (const auto& entry : entries)
    if ((stopped = ApplyOneFile(ctx, entry))) break;
  ctx.observers.remove(&reads);
  std::vector<std::string> written = {ctx.output.fullName()};
  for (const std::string& f : ctx.filesWritten) addOnce(written, f);

  if (o.makeRule) {
    std::string rule;
    for (const std::string& w : written) rule += (rule.empty() ? "" : " ") + makeWord(w);
    rule += ":";
    for (const std::string& r : reads.files) rule += " " + makeWord(r);
    std::cout << toTerminal(rule) << "\n";
  } else {
    auto line = [&](MessageKey key, const std::string& what) {
      std::cout << toTerminal(ctx.messages.format(key, what)) << "\n";
    };
    for (const std::string& r : reads.files) line(texts::cli::kDepReads, r);
    for (const std::string& s : reads.sections) line(texts::cli::kDepReads, s);
    for (const std::string& w : written) line(texts::cli::kDepWrites, w);
    for (const std::string& m : models) line(texts::cli::kDepModel, m);
  }
  if (stopped) {
    printError(stopped->shown());
    return 1;
  }
  return 0;
}

}  // namespace

void addDepsCommand(CLI::App& app) {
  auto o = std::make_shared<DepsOptions>();
  auto* cmd = app.add_subcommand("deps", cliText(texts::cli::kHelpDeps));
  cmd->add_option("ENTRY", o->words, cliText(texts::cli::kHelpEntry))->required();
  addSessionOptions(cmd, o->session);
  cmd->add_flag("-M", o->makeRule, cliText(texts::cli::kHelpMake));
  cmd->callback([o] { setExitCode(runDeps(*o)); });
}

}  // namespace korvane::cli
