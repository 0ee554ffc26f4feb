// The compiler's own directives, implemented across a few files.
#pragma once

#include <string>

namespace korvane {

struct CompileCall;
class DirectiveTable;

// "insert," and the file or section to include, with its repetitions.
void insertDirective(CompileCall& call, const std::string& fileSpec);
// "if," condition " then " ... [" else " ...].
void conditionDirective(CompileCall& call, const std::string& line);
// "script", "key-in", "print" and their "end" forms.
void addChannelDirectives(DirectiveTable& table);

}  // namespace korvane
