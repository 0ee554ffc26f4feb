// A place in the input: a line of a file, and the pass of the repetition it
// was read in (0 outside a repetition).
#pragma once

#include <string>

namespace korvane {

struct SourcePlace {
  std::string file;
  long line = 0;
  long repetition = 0;
};

}  // namespace korvane
