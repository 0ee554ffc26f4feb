// The compiler's own directives, implemented across a few files.
#pragma once

#include <string>

namespace korvane {

struct CompileCall;

// "insert," and the file or section to include, with its repetitions.
void insertDirective(CompileCall& call, const std::string& fileSpec);
// "if," condition " then " ... [" else " ...].
void conditionDirective(CompileCall& call, const std::string& line);

}  // namespace korvane
