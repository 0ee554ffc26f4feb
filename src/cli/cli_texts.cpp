#include "cli/cli_texts.h"

#include "cli/session.h"
#include "shell/home.h"

namespace korvane::cli {
namespace {

struct Texts {
  std::string language, home;
  Messages messages;
};

Texts& texts() {
  static Texts t;
  return t;
}

}  // namespace

const std::string& cliLanguage() { return texts().language; }
const std::string& cliHome() { return texts().home; }
const Messages& cliMessages() { return texts().messages; }

void loadCliTexts(const std::vector<std::string>& words) {
  Texts& t = texts();
  for (std::size_t i = 0; i < words.size(); ++i) {
    for (auto [option, target] : {std::pair{"--lang", &t.language}, std::pair{"--home", &t.home}}) {
      const std::string prefix = std::string(option) + "=";
      if (words[i] == option && i + 1 < words.size())
        *target = words[i + 1];
      else if (words[i].rfind(prefix, 0) == 0)
        *target = words[i].substr(prefix.size());
    }
  }
  HomePaths home;
  std::string error;
  if (resolveHome(fromTerminal(t.home), home, error, t.language))
    t.messages = Messages(home.language);
}

std::string cliText(MessageKey key, const std::string& a1, const std::string& a2) {
  return toTerminal(cliMessages().format(key, a1, a2));
}

}  // namespace korvane::cli
