// A long-section set drawn without AutoCAD: the generated input compiled and
// run through MX as usual, but its script kept beside the input instead of
// played, and the drawing written as SVG beside the script.
#pragma once

#include <string>

#include "compiler/run_context.h"

namespace korvane {

struct DrawnLongsection {
  std::string script;  // "<set>.scr" beside the input
  std::string svg;     // "<set>.svg" beside it
};

// Returns false with the message to show (users' code page) in `error` when
// the run stopped or nothing could be drawn.
bool drawLongsectionWithoutCad(const RunEnvironment& env, const std::string& input,
                               DrawnLongsection& out, std::string& error);

}  // namespace korvane
