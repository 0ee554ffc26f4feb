// The program's own words (help, argument errors) in the language chosen
// with --lang, KORVANE_LANG or the settings file, looked up before the
// command line is parsed.
#pragma once

#include <string>
#include <vector>

#include "base/messages.h"

namespace korvane::cli {

// The language named with --lang ("" when none); start-up uses it too.
const std::string& cliLanguage();
// The home folder named with --home ("" when none).
const std::string& cliHome();
// Finds --lang and --home among the words and loads the language file they
// give; without a language file the texts are empty.
void loadCliTexts(const std::vector<std::string>& words);
const Messages& cliMessages();
// Why the language or home folder asked for cannot be used ("" when they can),
// in the language of the settings file where there is one.
const std::string& cliTextsError();

// A text for the terminal (UTF-8 outside Windows).
std::string cliText(MessageKey key, const std::string& a1 = {}, const std::string& a2 = {});

}  // namespace korvane::cli
