// What every front end does before it can run entries: find the home folder
// with its settings and language files, settle the project folder, create the
// engine and wire the run context to them.
#pragma once

#include <memory>
#include <string>

#include "compiler/run_context.h"
#include "hosts/engine_factory.h"
#include "shell/home.h"

namespace korvane {

struct StartupOptions {
  std::string home;     // "" = the usual search (resolveHome)
  std::string project;  // "" = the current folder
  std::string engine;   // "" = defaultEngine
  hosts::EngineKind defaultEngine = hosts::defaultEngineKind();
};

struct Startup {
  HomePaths paths;
  std::unique_ptr<hosts::MxEngine> engine;
};

// Fills `out` and sets the context's settings path, messages, project folder
// and engine. Returns false with the message to show in `error` (in the users'
// code page) when the settings or language file, the project folder or the
// engine is missing.
bool startUp(const StartupOptions& options, Startup& out, RunContext& ctx, std::string& error);

// A run entry given on a command line ("a.ipf" or "a.ipf [main]") with its
// path made absolute against the current folder.
std::string absoluteRunEntry(const std::string& entry);

}  // namespace korvane
