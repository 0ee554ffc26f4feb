// korvane sections FILE: the sections of an input file, one a line, as run
// entries name them, each with the line of its head after a tab.
#include <CLI/CLI.hpp>
#include <iostream>

#include "base/texts/cli_texts.h"
#include "base/texts/runtime_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "shell/input_sections.h"

namespace korvane::cli {

void addSectionsCommand(CLI::App& app) {
  auto file = std::make_shared<std::string>();
  auto* cmd = app.add_subcommand("sections", cliText(texts::cli::kHelpSections));
  cmd->add_option("FILE", *file, cliText(texts::cli::kHelpFile))->required();
  static std::string home;  // read before parsing; taken here so that it is no stray word
  cmd->add_option("--home", home, cliText(texts::cli::kHelpHome));
  cmd->callback([file] {
    const std::string path = fromTerminal(*file);
    auto sections = readSectionHeads(path);
    if (!sections) {
      printError(cliMessages().format(texts::runtime::kCannotRead, path));
      setExitCode(1);
      return;
    }
    for (const SectionHead& s : *sections)
      std::cout << toTerminal(s.name) << "\t" << s.line << "\n";
    if (sections->empty()) printError(cliMessages().format(texts::cli::kNoSections, path));
    setExitCode(0);
  });
}

}  // namespace korvane::cli
