// korvane: the command-line front end.
#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "cli/commands.h"

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace {

// A shell splits "road.ipf [main]" into two words; a run entry is one. Words
// that open a section label are joined to the word before them here, before
// the option parser, which would read "[main]" as a list.
std::vector<std::string> joinSectionWords(int argc, char** argv) {
  std::vector<std::string> words;
  bool open = false;
  for (int i = 1; i < argc; ++i) {
    std::string w = argv[i];
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

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
  // Lines carry their own CR LF; a text-mode stream would write CR CR LF.
  _setmode(_fileno(stdout), _O_BINARY);
#endif
  CLI::App app{"Korvane: compiles .ipf input files into MX input and runs them"};
  app.require_subcommand(1);
  korvane::cli::addCompileCommand(app);
  korvane::cli::addRunCommand(app);
  korvane::cli::addModelsCommand(app);
  if (argc > 1) {
    const std::string first = argv[1];
    if (first != "compile" && first != "run" && first != "models" && first[0] != '-')
      return korvane::cli::runBatch(std::vector<std::string>(argv + 1, argv + argc));
  }
  try {
    auto words = joinSectionWords(argc, argv);
    app.parse(words);
  } catch (const CLI::ParseError& e) {
    return app.exit(e) == 0 ? 0 : 2;
  }
  return korvane::cli::exitCode();
}
