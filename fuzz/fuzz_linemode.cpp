// The Linemode lexer: every line of the input classified, read as a major
// option and as a minor option record with its comma fields.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "engine/input_file.h"
#include "engine/linemode_lexer.h"

using namespace korvane::engine;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> lines;
  splitLines(std::string_view(reinterpret_cast<const char*>(data), size), lines);
  for (const std::string& line : lines) {
    if (classifyLine(line) != LineKind::Record) continue;
    parseMajor(line);
    startsWithLetter(line);
    if (minorNumber(line) < 0) continue;
    Fields fields;
    std::string error;
    if (!Fields::split(line, fields, error)) {
      if (error.empty()) __builtin_trap();  // a refusal always says why
      continue;
    }
    // Field numbers come from the text ("N="); look at the first ones and the last.
    for (int n : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, fields.last() - 1, fields.last()}) {
      fields.has(n);
      fields.raw(n);
      std::optional<double> d;
      std::optional<long> l;
      std::string why;
      fields.number(n, d, why);
      fields.integer(n, l, why);
    }
  }
  return 0;
}
