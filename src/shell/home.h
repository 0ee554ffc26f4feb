// Where Korvane finds its settings file "Korvane.ini" and language files.
#pragma once

#include <string>

namespace korvane {

struct HomePaths {
  std::string home;            // the folder, without a trailing separator
  std::string settings;        // home + "Korvane.ini"
  std::string language;        // home + value of Language/lang + ".lng"
  bool hungarianHelp = false;  // "lang" is exactly "Hungarian"
};

// An environment variable's value; empty when it is not set.
std::string envText(const char* name);

// The folder of the running program.
std::string programFolder();

// Resolves the home folder: `explicitHome` (from --home) when not empty, else
// the environment variable KORVANE_HOME, else the program's own folder when it
// holds a settings file, else a per-user folder seeded on first use from the
// defaults installed with the program. Fails with "File not found: " and the
// path of the missing settings or language file.
// `language` ("hu", "en", or a language file's name such as "English"), else
// the environment variable KORVANE_LANG, else the settings file's "lang"
// value picks the language file.
bool resolveHome(const std::string& explicitHome, HomePaths& out, std::string& error,
                 const std::string& language = {});

// The language file's name for a language code: "hu" -> "Hungarian", "en" ->
// "English" (any case); any other text as it stands.
std::string languageFileName(const std::string& code);

}  // namespace korvane
