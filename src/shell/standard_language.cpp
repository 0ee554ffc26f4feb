// The input language as Korvane ships it: every array of rows, listed as
// Lua's linit.c lists its libraries. A later row for a name replaces an
// earlier one.
#include "shell/standard_language.h"

#include "commands/command_rows.h"
#include "functions/function_rows.h"

namespace korvane {

const LanguageTables& standardLanguage() {
  static const LanguageTables tables{{
                                         kCompilerDirectives,
                                         kChannelDirectives,
                                         commands::kLabelmoveCommand,
                                         commands::kTrimsectionCommand,
                                         commands::kDrawxsectionCommand,
                                         commands::kExcelCommands,
                                         commands::kUnavailableCommands,
                                     },
                                     {
                                         kMathFunctions,
                                         kStringFunctions,
                                         kModelQueryFunctions,
                                         kMinmaxFunction,
                                         kLabelFunctions,
                                         kProjectGetters,
                                         kExcelGetters,
                                         kOtherFunctions,
                                         kUnavailableFunctions,
                                     }};
  return tables;
}

}  // namespace korvane
