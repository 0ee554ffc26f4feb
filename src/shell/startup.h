// What every front end does before it can run entries: find the home folder
// with its settings and language files, settle the project folder, create the
// engine and wire the run context to them.
#pragma once

#include <memory>
#include <string>

#include "compiler/run_context.h"
#include "hosts/engine_factory.h"
#include "shell/home.h"
#include "shell/project_guard.h"

namespace korvane {

struct StartupOptions {
  std::string home;     // "" = the usual search (resolveHome)
  std::string project;  // "" = the current folder
  std::string engine;   // "" = defaultEngine
  hosts::EngineKind defaultEngine = hosts::defaultEngineKind();
};

struct Startup {
  ProjectLock lock;  // held for the life of the front end's run; let go last
  HomePaths paths;
  std::unique_ptr<hosts::MxEngine> engine;
  // Why start-up failed, as an exit status: 2 for the settings, the language
  // file or the command line; 1 when another run holds the project folder or
  // the engine cannot start here.
  int failureStatus = 0;
};

// Fills `out` and sets the context's settings path, messages, language tables,
// project folder and engine, holding the project folder against other runs
// before anything is written there. Returns false with the message to show in
// `error` (in the users' code page) and out.failureStatus set when something
// is missing or the folder is busy.
bool startUp(const StartupOptions& options, Startup& out, RunContext& ctx, std::string& error);

// A run entry given on a command line ("a.ipf" or "a.ipf [main]") with its
// path made absolute against the current folder.
std::string absoluteRunEntry(const std::string& entry);

}  // namespace korvane
