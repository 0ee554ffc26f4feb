// Commands whose implementations are not part of this build end the compile
// run with a clear message, after their preparation, instead of succeeding
// silently.
#include "base/texts/runtime_texts.h"
#include "commands/command_rows.h"
#include "compiler/extension/compile_failure.h"

namespace korvane::commands {
namespace {

DirectiveResult superelevation(DirectiveCall&) {
  throw RuntimeFailure(texts::runtime::kNotAvailable, "superelevation");
}
DirectiveResult earthworkToExcel(DirectiveCall&) {
  throw RuntimeFailure(texts::runtime::kNotAvailable, "earthwork->excel");
}

constexpr DirectiveRow kUnavailableCommandsRows[] = {
    {"superelevation",
     {.flushFirst = true,
      .readKeywordText = true,
      .defaults = DefaultBlock::WithKeywordText,
      .assignments = {"mref=%1,"}},
     superelevation},
    {"earthwork->excel",
     {.flushFirst = true, .readKeywordText = true, .defaults = DefaultBlock::WithKeywordText},
     earthworkToExcel},
};

}  // namespace

extern const DirectiveRows kUnavailableCommands = kUnavailableCommandsRows;

}  // namespace korvane::commands
