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

// The folder of the running program.
std::string programFolder();

// Resolves the home folder: `explicitHome` (from --home) when not empty, else
// the environment variable KORVANE_HOME, else the program's own folder when it
// holds a settings file, else a per-user folder seeded on first use from the
// defaults installed with the program. Fails with "File not found: " and the
// path of the missing settings or language file.
bool resolveHome(const std::string& explicitHome, HomePaths& out, std::string& error);

}  // namespace korvane
