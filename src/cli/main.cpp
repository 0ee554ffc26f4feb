// korvane: the command-line front end.
#include <CLI/CLI.hpp>
#include <algorithm>
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

const char* const kCommands[] = {"compile", "run", "check", "sections", "models", "deps", "help"};

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

// Whether an option word takes the next word as its value ("-D", not "-Dw=5"
// or a flag), in the program or any of its commands.
bool takesValue(const CLI::App& app, const std::string& word) {
  if (word.size() < 2 || word[0] != '-' || word.find('=') != std::string::npos) return false;
  if (word[1] != '-' && word.size() > 2) return false;
  if (const CLI::Option* o = app.get_option_no_throw(word)) return o->get_items_expected_min() > 0;
  for (const CLI::App* sub : app.get_subcommands([](const CLI::App*) { return true; }))
    if (takesValue(*sub, word)) return true;
  return false;
}

// Options mean the same before the command word as after it: the words
// before it go to the end, where the command reads its own options and
// passes the program's on.
std::vector<std::string> commandWordFirst(const CLI::App& app, std::vector<std::string> args) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    if (isCommand(args[i])) {
      std::rotate(args.begin(), args.begin() + static_cast<std::ptrdiff_t>(i), args.end());
      break;
    }
    if (!args[i].empty() && args[i][0] != '-') break;  // a word of no option: no command here
    if (takesValue(app, args[i])) ++i;
  }
  return args;
}

// Every option of every help screen under one heading.
void oneOptionsGroup(CLI::App& app, const std::string& group) {
  for (CLI::Option* o : app.get_options()) o->group(group);
  for (CLI::App* sub : app.get_subcommands([](CLI::App*) { return true; }))
    oneOptionsGroup(*sub, group);
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
  if (!cliTextsError().empty()) {
    std::cerr << "korvane: " << toTerminal(cliTextsError()) << std::endl;
    return 2;
  }

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
  std::string lang;
  app.add_option("--lang", lang, cliText(texts::cli::kHelpLang))->envname("KORVANE_LANG");
  app.fallthrough();
  app.require_subcommand(1);
  addCompileCommand(app);
  addCheckCommand(app);
  addRunCommand(app);
  addSectionsCommand(app);
  addDepsCommand(app);
  addModelsCommand(app);
  std::vector<std::string> helpTopic;
  auto* help = app.add_subcommand("help", cliText(texts::cli::kHelpHelpCommand));
  help->add_option("COMMAND", helpTopic, cliText(texts::cli::kHelpTopic));
  std::string home;  // read before parsing (cliHome); taken here so that it is no stray word
  help->add_option("--home", home, cliText(texts::cli::kHelpHome));
  oneOptionsGroup(app, cliText(texts::cli::kLabelOptions));

  if (!args.empty() && !isCommand(args[0]) && args[0][0] != '-') return runBatch(args);
  try {
    app.parse(joinSectionWords(commandWordFirst(app, args)));
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
