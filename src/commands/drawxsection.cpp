// drawxsection: a reserved word. Its keyword text is assigned and nothing is
// written.
#include "commands/command_rows.h"

namespace korvane::commands {
namespace {

DirectiveResult reserved(DirectiveCall&) { return DirectiveResult::Continue; }

constexpr DirectiveRow kDrawxsectionCommandRows[] = {
    {"drawxsection",
     {.flushFirst = true, .readKeywordText = true, .assignKeywordText = true},
     reserved},
};

}  // namespace

extern const DirectiveRows kDrawxsectionCommand = kDrawxsectionCommandRows;

}  // namespace korvane::commands
