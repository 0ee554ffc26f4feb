// korvane sections FILE: the sections of an input file, one a line, as run
// entries name them.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "shell/input_sections.h"

namespace korvane::cli {

void addSectionsCommand(CLI::App& app) {
  auto file = std::make_shared<std::string>();
  auto* cmd = app.add_subcommand("sections", cliText("h_sections"));
  cmd->add_option("FILE", *file, cliText("h_file"))->required();
  static std::string home;  // read before parsing; taken here so that it is no stray word
  cmd->add_option("--home", home, cliText("h_home"));
  cmd->callback([file] {
    const std::string path = fromTerminal(*file);
    auto sections = readSections(path);
    if (!sections) {
      printError(cliMessages().format("Runtime", "read", path));
      setExitCode(1);
      return;
    }
    for (const std::string& s : *sections) std::cout << toTerminal(s) << "\n";
    if (sections->empty()) printError(cliMessages().format("Cli", "no_sections", path));
    setExitCode(0);
  });
}

}  // namespace korvane::cli
