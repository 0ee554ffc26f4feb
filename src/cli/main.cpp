// korvane: the command-line front end.
#include <CLI/CLI.hpp>
#include <iostream>
#include <string>
#include <vector>

#include "base/fs.h"
#include "base/texts/cli_texts.h"
#include "cli/cli_texts.h"
#include "cli/commands.h"
#include "cli/session.h"
#include "shell/driver.h"
#include "shell/startup.h"

#ifndef KORVANE_VERSION
#define KORVANE_VERSION "0.0.0"
#endif

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

using korvane::MessageKey;
namespace texts = korvane::texts;

const char* const kCommands[] = {"compile", "run", "check", "sections", "models", "help"};

bool isCommand(const std::string& word) {
  for (const char* c : kCommands)
    if (word == c) return true;
  return false;
}

// A shell splits "road.ipf [main]" into two words; a run entry is one. Words
// that open a section label are joined to the word before them here, before
// the option parser, which would read "[main]" as a list.
std::vector<std::string> joinSectionWords(const std::vector<std::string>& args) {
  std::vector<std::string> words;
  bool open = false;
  for (const std::string& w : args) {
    if (!words.empty() && (open || (!w.empty() && w[0] == '['))) {
      words.back() += " " + w;
      open = w.find(']') == std::string::npos;
    } else {
      words.push_back(w);
      open = false;
    }
  }
  return {words.rbegin(), words.rend()};  // the parser takes them last first
}

// The argument error in the chosen language: CLI11 names the option or word
// at the start of its own (English) text.
std::string argumentError(const CLI::ParseError& e) {
  using korvane::cli::cliText;
  std::string what = e.what();
  auto before = [&](const std::string& sep) {
    const std::size_t at = what.find(sep);
    return at == std::string::npos ? what : what.substr(0, at);
  };
  if (dynamic_cast<const CLI::RequiredError*>(&e)) {
    if (what.find("subcommand") != std::string::npos) return cliText(texts::cli::kArgCommand);
    return cliText(texts::cli::kArgRequired, before(" is required"));
  }
  if (dynamic_cast<const CLI::ExtrasError*>(&e)) {
    const std::size_t colon = what.find(": ");
    return cliText(texts::cli::kArgExtra,
                   colon == std::string::npos ? what : what.substr(colon + 2));
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&e))
    return cliText(texts::cli::kArgValue, before(":"));
  return cliText(texts::cli::kArgInvalid, what);
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  // Lines carry their own CR LF; a text-mode stream would write CR CR LF.
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  using namespace korvane::cli;
  const std::vector<std::string> args(argv + 1, argv + argc);
  loadCliTexts(args);

  CLI::App app{cliText(texts::cli::kHelpApp)};
  app.set_help_flag("-h,--help", cliText(texts::cli::kHelpHelp));
  app.set_version_flag("--version", std::string("korvane ") + KORVANE_VERSION);
  auto fmt = app.get_formatter();
  const std::pair<const char*, MessageKey> labels[] = {
      {"Usage", texts::cli::kLabelUsage},
      {"OPTIONS", texts::cli::kLabelOptionsWord},
      {"Options", texts::cli::kLabelOptions},
      {"Positionals", texts::cli::kLabelPositionals},
      {"Subcommands", texts::cli::kLabelSubcommands},
      {"SUBCOMMAND", texts::cli::kLabelSubcommandWord},
      {"SUBCOMMANDS", texts::cli::kLabelSubcommandsWord},
      {"REQUIRED", texts::cli::kLabelRequired},
  };
  for (const auto& [label, key] : labels) {
    const std::string text = cliText(key);
    if (!text.empty()) fmt->label(label, text);
  }
  if (!cliText(texts::cli::kLabelOptions).empty())
    app.option_defaults()->group(cliText(texts::cli::kLabelOptions));
  std::string lang;
  app.add_option("--lang", lang, cliText(texts::cli::kHelpLang))->envname("KORVANE_LANG");
  app.fallthrough();
  app.require_subcommand(1);
  addCompileCommand(app);
  addCheckCommand(app);
  addRunCommand(app);
  addSectionsCommand(app);
  addModelsCommand(app);
  std::vector<std::string> helpTopic;
  auto* help = app.add_subcommand("help", cliText(texts::cli::kHelpHelpCommand));
  help->add_option("COMMAND", helpTopic, cliText(texts::cli::kHelpTopic));
  std::string home;  // read before parsing (cliHome); taken here so that it is no stray word
  help->add_option("--home", home, cliText(texts::cli::kHelpHome));

  if (!args.empty() && !isCommand(args[0]) && args[0][0] != '-') return runBatch(args);
  try {
    app.parse(joinSectionWords(args));
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    std::cerr << "korvane: " << argumentError(e) << "\n"
              << cliText(texts::cli::kArgHint) << std::endl;
    return 2;
  }
  if (help->parsed()) {
    const CLI::App* topic = &app;
    for (const std::string& word : helpTopic) {
      const CLI::App* sub = nullptr;
      try {
        sub = topic->get_subcommand(word);
      } catch (const CLI::OptionNotFound&) {
      }
      if (!sub) {
        std::cerr << "korvane: " << cliText(texts::cli::kArgNoCommand, word) << "\n"
                  << cliText(texts::cli::kArgHint) << std::endl;
        return 2;
      }
      topic = sub;
    }
    // The formatter directly: App::help() would describe the `help` command itself.
    std::cout << topic->get_formatter()->make_help(
        topic, topic == &app ? "korvane" : topic->get_name(), CLI::AppFormatMode::Normal);
    return 0;
  }
  return exitCode();
}
