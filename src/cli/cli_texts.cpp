#include "cli/cli_texts.h"

#include "base/fs.h"
#include "base/profile.h"
#include "base/texts/cli_texts.h"
#include "cli/session.h"
#include "shell/home.h"

namespace korvane::cli {
namespace {

struct Texts {
  std::string language, home;
  Messages messages;
  std::string error;
};

Texts& texts() {
  static Texts t;
  return t;
}

}  // namespace

const std::string& cliLanguage() { return texts().language; }
const std::string& cliHome() { return texts().home; }
const Messages& cliMessages() { return texts().messages; }
const std::string& cliTextsError() { return texts().error; }

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
  if (resolveHome(fromTerminal(t.home), home, t.error, t.language)) {
    t.messages = Messages(home.language);
    return;
  }
  // The reason in the language the settings name, of the home folder given
  // or, when that has no settings, of the one Korvane finds without it.
  const bool badHome = !fs::fileExists(home.settings);
  const std::string fallbackHome = badHome ? std::string() : home.home;
  HomePaths fallback;
  std::string unused;
  if (!resolveHome(fallbackHome, fallback, unused, t.language) &&
      !(fs::fileExists(fallback.settings) &&
        resolveHome(fallbackHome, fallback, unused,
                    ReadProfileString("Language", "lang", fallback.settings))))
    return;
  t.messages = Messages(fallback.language);
  const std::string language = t.language.empty() ? envText("KORVANE_LANG") : t.language;
  t.error = badHome ? t.messages.format(texts::cli::kBadHome, home.home)
                    : t.messages.format(texts::cli::kBadLanguage, fromTerminal(language));
}

std::string cliText(MessageKey key, const std::string& a1, const std::string& a2) {
  return toTerminal(cliMessages().format(key, a1, a2));
}

}  // namespace korvane::cli
