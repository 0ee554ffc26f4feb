// What every front end does before it can run entries: find the home folder
// with its settings and language files, settle the project folder, create the
// engine and wire the run context to them.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "compiler/run_context.h"
#include "hosts/automation.h"
#include "hosts/excel.h"
#include "shell/engine_choice.h"
#include "shell/home.h"
#include "shell/project_guard.h"

namespace korvane {

struct StartupOptions {
  std::string home;     // "" = the usual search (resolveHome)
  std::string project;  // "" = found from firstEntry (projectFolderFor); MX's own with MX
  std::string engine;   // "" = defaultEngine
  // None: MX where the classes Korvane.ini names are registered (defaultEngineKind).
  std::optional<EngineKind> defaultEngine;
  std::string firstEntry;       // the run's first input file (absolute), or ""
  bool requireProject = false;  // refuse a model store in a folder that is no project
  std::string language;         // "" = the settings file's; "hu", "en" or a file's name
  // Set from outside (Ctrl-C, a Stop button) to end the run at its next line
  // or, inside the embedded engine, its next record.
  const std::atomic<bool>* interrupted = nullptr;
  // Only looking (check, compile, a dry run): the embedded engine undoes
  // every change when it ends; MX, which cannot, is used only when named.
  bool looking = false;
};

struct Startup {
  ProjectLock lock;  // held for the life of the front end's run; let go last
  HomePaths paths;
  std::unique_ptr<hosts::MxEngine> engine;
  std::unique_ptr<hosts::AutomationSystem> automation;  // AutoCAD and MicroStation, when running
  std::unique_ptr<hosts::ExcelHost> excel;  // Excel, or the workbook files where none runs
  // Why start-up failed, as an exit status: 2 for the settings, the language
  // file or the command line; 1 when another run holds the project folder or
  // the engine cannot start here.
  int failureStatus = 0;
  // A note for the user on what start-up chose (users' code page), or "".
  std::string note;
};

// Fills `out` and sets the context's settings path, messages, language tables,
// project folder and engine, holding the project folder against other runs
// before anything is written there. Returns false with the message to show in
// `error` (in the users' code page) and out.failureStatus set when something
// is missing or the folder is busy.
bool startUp(const StartupOptions& options, Startup& out, RunContext& ctx, std::string& error);

// The project folder of a run: the folder named (--project), else the folder
// of the first entry, or its parent when that folder is named "inputs", else
// the current folder. Absolute, without a trailing separator.
std::string projectFolderFor(const std::string& named, const std::string& firstEntry);

// Whether a folder is laid out as an MX project: it holds an "inputs" folder
// or Korvane's model store.
bool isProjectFolder(const std::string& folder);

// A run entry given on a command line ("a.ipf" or "a.ipf [main]") with its
// path made absolute against the current folder.
std::string absoluteRunEntry(const std::string& entry);

// A word after an entry that names no file but a section of that entry's
// file, its brackets forgotten ("road.ipf main"): the section label to read it
// as ("[main]"); empty otherwise.
std::string forgottenBrackets(const std::string& previousEntry, const std::string& word);

}  // namespace korvane
