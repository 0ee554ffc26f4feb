// The extended commands, one array of rows per file: each file ends with its
// rows (keyword, preparation, handler). A new command is its file, with its
// line here and in shell/standard_language.cpp, its default block
// "[COMMAND:keyword]" in data/Korvane.ini and its texts in the language files.
#pragma once

#include "compiler/extension/language_rows.h"

namespace korvane::commands {

extern const DirectiveRows kLabelmoveCommand;     // labelmove.cpp
extern const DirectiveRows kTrimsectionCommand;   // trimsection.cpp
extern const DirectiveRows kDrawxsectionCommand;  // drawxsection.cpp
extern const DirectiveRows kExcelCommands;        // excel_commands.cpp
extern const DirectiveRows kUnavailableCommands;  // unavailable_commands.cpp

}  // namespace korvane::commands
