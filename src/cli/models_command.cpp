// korvane models: load, inspect and export the embedded engine's models.
#include <CLI/CLI.hpp>

#include "cli/commands.h"

namespace korvane::cli {

void addModelsCommand(CLI::App& app) {
  auto* models = app.add_subcommand("models", "Work with the embedded engine's models");
  models->require_subcommand(1);
}

}  // namespace korvane::cli
