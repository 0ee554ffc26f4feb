// korvane: the command-line front end.
#include <CLI/CLI.hpp>

#include "cli/commands.h"

int main(int argc, char** argv) {
  CLI::App app{"Korvane: compiles .ipf input files into MX input and runs them"};
  app.require_subcommand(1);
  korvane::cli::addCompileCommand(app);
  korvane::cli::addModelsCommand(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e) == 0 ? 0 : 2;
  }
  return korvane::cli::exitCode();
}
