#include "shell/standard_language.h"

#include "commands/commands.h"
#include "functions/functions.h"

namespace korvane {

const LanguageTables& standardLanguage() {
  static const LanguageTables tables = [] {
    LanguageTables t;
    addCompilerDirectives(t.directives);
    commands::registerCommands(t.directives);
    registerFunctions(t.functions);
    return t;
  }();
  return tables;
}

}  // namespace korvane
